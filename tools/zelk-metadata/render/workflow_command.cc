#include "render/workflow_command.h"

#include <fmt/format.h>
#include <ostream>
#include <string_view>

#include "render/utf8.h"

namespace Zelk::Tool::Render {
namespace {

/// With what would end a workflow command, or begin another, written as GitHub reads it; other
/// control characters are made harmless.
std::string Escaped(const std::string& text, std::string_view also) {
  std::string escaped;
  for (const char byte : text) {
    const bool is_special =
        byte == '%' || byte == '\r' || byte == '\n' || also.find(byte) != std::string_view::npos;
    escaped +=
        is_special ? fmt::format("%{:02X}", static_cast<unsigned>(byte)) : std::string(1, byte);
  }
  return ForTerminal(escaped);
}

std::string EscapedProperty(const std::string& text) {
  return Escaped(text, ":,");
}

}  // namespace

void Write(std::ostream& out, const WorkflowCommand& command) {
  out << "::" << command.name << " file=" << EscapedProperty(command.file);
  if (command.line > 0) out << ",line=" << command.line << ",col=" << command.column;
  if (!command.title.empty()) out << ",title=" << EscapedProperty(command.title);
  out << "::" << Escaped(command.text, "") << '\n';
}

void WorkflowCommands::Add(const WorkflowCommand& command) {
  const bool is_notice = command.name == "notice";
  // One notice is left for the number of the others.
  const std::size_t most = is_notice ? 9 : 10;
  if (++shown_[command.name] <= most) return Write(out_, command);
  ++left_;
  const std::string place =
      command.line == 0 ? "" : fmt::format(":{}:{}", command.line, command.column);
  // A file may have the name of a workflow command, which is only one at the beginning of a line.
  out_ << ForTerminal(fmt::format("{}: {}{}: {} [{}]", is_notice ? "note" : command.name,
                                  command.file, place, command.text, command.title))
       << '\n';
}

void WorkflowCommands::End() {
  if (left_ == 0) return;
  out_ << "::notice title=" << title_ << "::" << left_ << " more " << (left_ == 1 ? "is" : "are")
       << " in the log of this step\n";
}

}  // namespace Zelk::Tool::Render
