#include "analysis/options.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "analysis/format.h"
#include "analysis/text.h"

namespace Zelk::Analysis {
namespace {

// In the order of Arity, which is that of the words for options, too.
constexpr std::array<Takes, 5> kTakes{{
    {false, false, false},
    {false, true, false},
    {true, false, false},
    {true, true, false},
    {true, false, true},
}};

/// Whether the text is one character, in UTF-8.
bool IsOneCharacter(std::string_view text) {
  const auto is_continued = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
  };
  return !text.empty() && !is_continued(text.front()) &&
         std::all_of(text.begin() + 1, text.end(), is_continued);
}

}  // namespace

const Takes* TakesOf(std::string_view generic) {
  if (generic.empty()) return kTakes.data();
  const char* const word = kOptionGenerics.Find(generic);
  for (std::size_t i = 0; i < kTakes.size(); ++i) {
    if (kOptionGenerics.texts[i] == word) return &kTakes.at(i);
  }
  return nullptr;
}

const Takes& TakesOf(Arity arity) {
  return kTakes.at(static_cast<std::size_t>(arity));
}

const char* ProblemOfLong(std::string_view name) {
  if (name.empty()) return "has no name";
  if (name.front() == '-') return "begins with a dash, which clients put there themselves";
  if (name.find_first_of(" \t\r\n") != std::string_view::npos) return "has a blank in it";
  return name.find('=') == std::string_view::npos ? nullptr : "has a '=' in it";
}

const char* ProblemOfShort(std::string_view name) {
  if (name == "-") return "is a dash, which clients put there themselves";
  return IsOneCharacter(name) ? nullptr : "is not one character";
}

std::string TypeOfOption(std::string_view text) {
  const char* const builtin = kBuiltinTypes.Find(text);
  return builtin == nullptr ? LowerCase(std::string(text)) : builtin;
}

}  // namespace Zelk::Analysis
