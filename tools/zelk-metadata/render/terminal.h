#pragma once

#include <cstddef>
#include <string>

namespace Zelk::Tool {

/// Where a stream ends. By default not a terminal: text is written unchanged.
struct Terminal {
  bool is_terminal = false;

  /// Columns to wrap text to; 0 for no wrapping.
  std::size_t width = 0;

  bool colours = false;
};

/// That of a file descriptor. The width is COLUMNS, or else the terminal's own. Colours are off if
/// NO_COLOR is set and not empty, or TERM is "dumb".
Terminal TerminalOf(int descriptor);

/// The text in bold where colours are used.
std::string Bold(const Terminal& terminal, const std::string& text);

}  // namespace Zelk::Tool
