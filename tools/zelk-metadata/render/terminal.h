#pragma once

#include <cstddef>
#include <string>

namespace Zelk::Tool {

/// What stands at the other end of a stream. As it is made, no terminal: text goes out as it is.
struct Terminal {
  bool is_terminal = false;

  /// Columns to wrap text to; 0 for no wrapping.
  std::size_t width = 0;

  bool colours = false;
};

/// That of a file descriptor. The width is that of COLUMNS, or else of the terminal; colours are
/// used unless NO_COLOR is set to anything but nothing or the terminal is a dumb one.
Terminal TerminalOf(int descriptor);

/// The text in bold where colours are used.
std::string Bold(const Terminal& terminal, const std::string& text);

}  // namespace Zelk::Tool
