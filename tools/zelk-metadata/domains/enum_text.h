#pragma once

#include <string>

namespace Zelk::Tool {

/// The name of the enumerator, or, for an unknown value, the text that it came with.
template <typename Enumeration>
std::string EnumText(const Enumeration& value) {
  if (value.Value() < Enumeration::UNKNOWN) return Enumeration::Strings::values[value.Value()];
  return value.Text().empty() ? "UNKNOWN" : value.Text();
}

}  // namespace Zelk::Tool
