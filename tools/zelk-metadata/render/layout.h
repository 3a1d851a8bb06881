#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Zelk::Tool::Render {

/// How many columns of a terminal a text takes that has been made harmless (see ForTerminal).
std::size_t Columns(const std::string& text);

/// As much of the text as `width` columns have room for, with dots for the rest. A width of 0 cuts
/// nothing.
std::string Cut(const std::string& text, std::size_t width);

/// The text broken between words, and between ideographs, into lines of at most `width` columns.
/// Blanks at its beginning are kept in front of every line, and all lines but the first are
/// indented by `hanging` more. A word that is wider has a line of its own. A width of 0 breaks
/// nothing.
std::vector<std::string> Wrapped(const std::string& text, std::size_t width,
                                 std::size_t hanging = 0);

/// Words side by side in columns as wide as the widest word, in order from top to bottom, in lines
/// of at most `width` columns.
std::vector<std::string> InColumns(const std::vector<std::string>& words, std::size_t width);

}  // namespace Zelk::Tool::Render
