#include "analysis/format.h"

#include <array>
#include <locale>

namespace Zelk::Analysis {
namespace {

// In the order of Domain.
constexpr std::array<const Format*, 3> kFormats{&kMetamodelFormat, &kAuthenticationFormat,
                                                &kCliFormat};

}  // namespace

const char* Words::Find(std::string_view text) const {
  // Most texts are written as the enumerators are.
  if (const char* const exact = FindExact(text)) return exact;
  const std::string upper = ToUpper(text);
  if (const char* const found = FindExact(upper)) return found;
  return alias != nullptr && upper == alias ? meaning : nullptr;
}

const char* Words::FindExact(std::string_view text) const {
  for (const char* const* word = texts; *word != nullptr; ++word) {
    if (text == *word) return *word;
  }
  return nullptr;
}

const Format& FormatOf(Domain domain) {
  return *kFormats.at(static_cast<std::size_t>(domain));
}

const Format* FindFormat(std::string_view root_key) {
  for (const Format* format : kFormats) {
    if (root_key == format->root_key) return format;
  }
  return nullptr;
}

std::string ToUpper(std::string_view text) {
  std::string upper(text);
  const std::locale locale;
  std::use_facet<std::ctype<char>>(locale).toupper(upper.data(), upper.data() + upper.size());
  return upper;
}

std::string_view OwnerOf(std::string_view id) {
  const std::size_t dot = id.rfind('.');
  return dot == std::string_view::npos || dot + 1 == id.size() ? std::string_view()
                                                               : id.substr(0, dot);
}

}  // namespace Zelk::Analysis
