#include "render/page.h"

#include <algorithm>
#include <ostream>
#include <sstream>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

constexpr std::size_t kStep = 4;
constexpr std::size_t kLeastRoom = 20;

/// Tabs move nothing but the cursor, and authors indent with them.
std::string WithoutTabs(std::string text) {
  for (std::size_t at = text.find('\t'); at != std::string::npos; at = text.find('\t', at)) {
    text.replace(at, 1, kStep, ' ');
  }
  return text;
}

}  // namespace

Page::Page(std::ostream& out, const Terminal& terminal) : out_(out), terminal_(terminal) {}

void Page::Title(const std::string& text) {
  out_ << Bold(terminal_, ForTerminal(text)) << '\n';
}

void Page::Line(std::size_t level, const std::string& text) {
  out_ << std::string(level * kStep, ' ') << ForTerminal(text) << '\n';
}

void Page::Paragraph(std::size_t level, const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    WriteWrapped(line.empty() ? 0 : level, ForTerminal(WithoutTabs(line)));
  }
}

void Page::Pairs(std::size_t level, const std::vector<std::pair<std::string, std::string>>& pairs) {
  std::size_t width = 0;
  for (const auto& [name, description] : pairs) {
    width = std::max(width, Columns(ForTerminal(name)));
  }
  const std::size_t indent = level * kStep + width + 2;
  const std::size_t room = terminal_.width >= indent + kLeastRoom ? terminal_.width - indent : 0;
  for (const auto& [name, description] : pairs) {
    const std::string shown = ForTerminal(name);
    std::string text = std::string(level * kStep, ' ') + shown;
    if (!description.empty()) text += std::string(width - Columns(shown) + 2, ' ');
    for (const std::string& line : Wrapped(ForTerminal(description), room)) {
      out_ << text << line << '\n';
      text = std::string(indent, ' ');
    }
  }
}

void Page::Heading(const std::string& text) {
  out_ << '\n';
  Title(text);
}

void Page::WriteWrapped(std::size_t level, const std::string& text) {
  const std::string indent(level * kStep, ' ');
  // Where the indentation leaves no room for words, the terminal may break the lines.
  const bool roomy = terminal_.width >= indent.size() + kLeastRoom;
  for (const std::string& line : Wrapped(text, roomy ? terminal_.width - indent.size() : 0)) {
    out_ << indent << line << '\n';
  }
}

void PrintError(std::ostream& err, const std::string& text) {
  err << "zelk-metadata: " << ForTerminal(text) << '\n';
}

}  // namespace Zelk::Tool
