#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Zelk::Tool {

/// How many columns of a terminal a text takes that has been made harmless (see ForTerminal).
std::size_t Columns(const std::string& text);

/// The text broken between words into lines of at most `width` columns; blanks at its beginning
/// are kept in front of every line. A word that is wider has a line of its own. A width of 0
/// breaks nothing.
std::vector<std::string> Wrapped(const std::string& text, std::size_t width);

}  // namespace Zelk::Tool
