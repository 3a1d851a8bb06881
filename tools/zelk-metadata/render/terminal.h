#pragma once

#include <cstddef>
#include <string>

namespace Zelk::Tool::Render {

/// Where a stream ends. By default not a terminal: text is written unchanged.
struct Terminal {
  bool is_terminal = false;

  /// Columns to wrap text to; 0 for no wrapping.
  std::size_t width = 0;

  bool colours = false;

  /// Lines of the screen; 0 if it cannot show one screen after the other.
  std::size_t height = 0;
};

/// That of a file descriptor. The width is COLUMNS, or else the terminal's own. Colours are off if
/// NO_COLOR is set and not empty, or TERM is "dumb".
Terminal TerminalOf(int descriptor);

enum class Style { kBold, kError, kWarning, kNote };

/// The text in that style where colours are used.
std::string Styled(const Terminal& terminal, Style style, const std::string& text);

}  // namespace Zelk::Tool::Render
