#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>

#include "analysis/text.h"

namespace Zelk::Tool::Render {

using Analysis::LowerCase;

// Only ASCII letters have a case, in every locale.
inline std::string UpperCase(std::string text) {
  for (char& character : text) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character + 'A' - 'a');
  }
  return text;
}

inline std::string FirstLine(const std::string& text) {
  return text.substr(0, text.find('\n'));
}

/// Empty unless the whole text is a decimal number that fits.
inline std::optional<std::uint64_t> ParseNumber(const std::string& text) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return number;
}

}  // namespace Zelk::Tool::Render
