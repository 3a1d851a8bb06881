#include "lint/report.h"
#include "render/workflow_command.h"

namespace Zelk::Tool::Lint {
namespace {

Render::WorkflowCommand CommandOf(const Entry& entry) {
  const bool is_note = entry.severity == Severity::kNote;
  Render::WorkflowCommand command{is_note ? "notice" : Analysis::Lint::Word(entry.severity),
                                  entry.file};
  if (entry.position) {
    command.line = entry.position->line;
    command.column = entry.position->column;
  }
  command.title = entry.rule;
  command.text = entry.message + (entry.hint.empty() ? "" : " (" + entry.hint + ")");
  return command;
}

}  // namespace

void WriteGithub(std::ostream& out, const Report& report) {
  Render::WorkflowCommands commands(out, "lint");
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    report.ForEach([&](const Entry& entry) {
      const bool is_suppressed = entry.suppressed_by != SuppressedBy::kNothing;
      if (entry.severity == severity && !is_suppressed) commands.Add(CommandOf(entry));
    });
  }
  commands.End();
}

}  // namespace Zelk::Tool::Lint
