#include "render/terminal.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

#include "render/text.h"

namespace Zelk::Tool {
namespace {

std::size_t WidthOf(int descriptor) {
  const char* const columns = std::getenv("COLUMNS");
  const std::uint64_t width = columns == nullptr ? 0 : ParseNumber(columns).value_or(0);
  if (width > 0) return width;
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
}

bool WantsColours() {
  const char* const refused = std::getenv("NO_COLOR");
  if (refused != nullptr && *refused != '\0') return false;
  const char* const type = std::getenv("TERM");
  return type != nullptr && std::strcmp(type, "dumb") != 0;
}

}  // namespace

Terminal TerminalOf(int descriptor) {
  if (isatty(descriptor) == 0) return {};
  return {true, WidthOf(descriptor), WantsColours()};
}

std::string Bold(const Terminal& terminal, const std::string& text) {
  return terminal.colours ? "\x1b[1m" + text + "\x1b[0m" : text;
}

}  // namespace Zelk::Tool
