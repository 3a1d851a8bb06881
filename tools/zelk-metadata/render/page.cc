#include "render/page.h"

#include <algorithm>
#include <ostream>
#include <sstream>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Render {
namespace {

constexpr std::size_t kStep = 4;
constexpr std::size_t kLeastRoom = 20;
/// Without a terminal.
constexpr std::size_t kSectionWidth = 76;
/// More than what is inside of a line is indented by.
constexpr std::size_t kHanging = 2 * kStep;

/// Tabs move nothing but the cursor, and authors indent with them.
std::string WithoutTabs(const std::string& text) {
  std::string expanded;
  for (const char byte : text) expanded.append(byte == '\t' ? kStep : 1, byte == '\t' ? ' ' : byte);
  return expanded;
}

}  // namespace

Page::Page(std::ostream& out, const Terminal& terminal) : out_(out), terminal_(terminal) {}

void Page::Title(const std::string& text) {
  const std::string shown = ForTerminal(title_prefix_ + text);
  title_prefix_.clear();
  for (const std::string& line : Wrapped(shown, terminal_.width, kHanging)) {
    out_ << Styled(terminal_, Style::kBold, line) << '\n';
  }
}

void Page::Line(std::size_t level, const std::string& text) {
  WriteWrapped(level, ForTerminal(text), kHanging);
}

void Page::Paragraph(std::size_t level, const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    WriteWrapped(line.empty() ? 0 : level, ForTerminal(WithoutTabs(line)), 0);
  }
}

void Page::Pairs(std::size_t level, const std::vector<std::pair<std::string, std::string>>& pairs) {
  std::size_t width = 0;
  for (const auto& [name, description] : pairs) {
    width = std::max(width, Columns(ForTerminal(name)));
  }
  const std::size_t indent = level * kStep + width + 2;
  if (terminal_.width > 0 && terminal_.width < indent + kLeastRoom) {
    for (const auto& [name, description] : pairs) {
      Line(level, name);
      Paragraph(level + 1, description);
    }
    return;
  }
  const std::size_t room = terminal_.width == 0 ? 0 : terminal_.width - indent;
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

void Page::Section(const std::string& heading, const std::string& text) {
  Heading(heading);
  for (const std::string& line : Wrapped(text, terminal_.width == 0 ? kSectionWidth : 0)) {
    Paragraph(1, line);
  }
}

void Page::WriteWrapped(std::size_t level, const std::string& text, std::size_t hanging) {
  const std::size_t width = terminal_.width;
  std::size_t indent = level * kStep;
  // The deepest levels are indented less, since words need room.
  if (width > 0) indent = std::min(indent, width - std::min(width, kLeastRoom));
  for (const std::string& line : Wrapped(text, width == 0 ? 0 : width - indent, hanging)) {
    out_ << std::string(line.empty() ? 0 : indent, ' ') << line << '\n';
  }
}

void PrintError(std::ostream& err, const std::string& text, const Terminal& terminal) {
  const std::string name = std::string(kProgramName) + ":";
  std::string begin = Styled(terminal, Style::kError, name);
  for (const std::string& line : Wrapped(name + ' ' + ForTerminal(text), terminal.width, kStep)) {
    err << begin << (begin.empty() ? line : line.substr(name.size())) << '\n';
    begin.clear();
  }
}

}  // namespace Zelk::Tool::Render
