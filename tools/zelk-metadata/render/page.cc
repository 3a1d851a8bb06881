#include "render/page.h"

#include <ostream>
#include <sstream>

#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

constexpr std::size_t kStep = 4;

/// Tabs move nothing but the cursor, and authors indent with them.
std::string WithoutTabs(std::string text) {
  for (std::size_t at = text.find('\t'); at != std::string::npos; at = text.find('\t', at)) {
    text.replace(at, 1, kStep, ' ');
  }
  return text;
}

}  // namespace

Page::Page(std::ostream& out) : out_(out) {}

void Page::Line(std::size_t level, const std::string& text) {
  out_ << std::string(level * kStep, ' ') << ForTerminal(text) << '\n';
}

void Page::Paragraph(std::size_t level, const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    Line(line.empty() ? 0 : level, WithoutTabs(line));
  }
}

void Page::Heading(const std::string& text) {
  out_ << '\n';
  Line(0, text);
}

void PrintError(std::ostream& err, const std::string& text) {
  err << "zelk-metadata: " << ForTerminal(text) << '\n';
}

}  // namespace Zelk::Tool
