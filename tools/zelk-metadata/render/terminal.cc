#include "render/terminal.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

#include "render/text.h"

namespace Zelk::Tool::Render {
namespace {

std::size_t WidthFromEnvironment() {
  const char* const columns = std::getenv("COLUMNS");
  return columns == nullptr ? 0 : static_cast<std::size_t>(ParseNumber(columns).value_or(0));
}

bool RefusesColours() {
  const char* const refused = std::getenv("NO_COLOR");
  return refused != nullptr && *refused != '\0';
}

bool IsDumb() {
  const char* const type = std::getenv("TERM");
  return type == nullptr || std::strcmp(type, "dumb") == 0;
}

/// The escape sequence that begins it.
const char* Begin(Style style) {
  switch (style) {
    case Style::kError:
      return "\x1b[1;31m";
    case Style::kWarning:
      return "\x1b[1;35m";
    case Style::kNote:
      return "\x1b[1;36m";
    case Style::kBold:
      break;
  }
  return "\x1b[1m";
}

}  // namespace

Terminal TerminalOf(int descriptor) {
  if (isatty(descriptor) == 0) return {};
  winsize size{};
  ioctl(descriptor, TIOCGWINSZ, &size);
  const std::size_t width = WidthFromEnvironment();
  const std::size_t height = IsDumb() ? 0 : size.ws_row;
  return {true, width > 0 ? width : size.ws_col, !IsDumb() && !RefusesColours(), height};
}

std::string Styled(const Terminal& terminal, Style style, const std::string& text) {
  return terminal.colours ? Begin(style) + text + "\x1b[0m" : text;
}

}  // namespace Zelk::Tool::Render
