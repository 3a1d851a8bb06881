#include <array>
#include <fmt/format.h>
#include <ostream>

#include "lint/report.h"
#include "render/utf8.h"
#include "render/workflow_command.h"

namespace Zelk::Tool::Lint {
namespace {

// GitHub shows the first ten commands of each kind in a step and drops the rest without a word. One
// notice is left for the number of the others.
constexpr std::array<std::size_t, 3> kMostShown{10, 10, 9};

WorkflowCommand CommandOf(const Entry& entry) {
  const bool is_note = entry.severity == Severity::kNote;
  WorkflowCommand command{is_note ? "notice" : Analysis::Lint::Word(entry.severity), entry.file};
  if (entry.position) {
    command.line = entry.position->line;
    command.column = entry.position->column;
  }
  command.title = entry.rule;
  command.text = entry.message + (entry.hint.empty() ? "" : " (" + entry.hint + ")");
  return command;
}

void WriteLine(std::ostream& out, const Entry& entry) {
  const auto [line, column] = entry.position.value_or(Analysis::Position{0, 0});
  out << ForTerminal(fmt::format("{}:{}:{}: {}: {} [{}]", entry.file, line, column,
                                 Analysis::Lint::Word(entry.severity), entry.message, entry.rule))
      << '\n';
}

}  // namespace

void WriteGithub(std::ostream& out, const Report& report) {
  std::size_t left = 0;
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    std::size_t shown = 0;
    report.ForEach([&](const Entry& entry) {
      if (entry.severity != severity || entry.suppressed_by != SuppressedBy::kNothing) return;
      if (shown < kMostShown.at(static_cast<std::size_t>(severity))) {
        ++shown;
        Write(out, CommandOf(entry));
      } else {
        ++left;
        WriteLine(out, entry);
      }
    });
  }
  if (left == 0) return;
  out << "::notice title=lint::" << left << " more " << (left == 1 ? "is" : "are")
      << " in the log of this step\n";
}

}  // namespace Zelk::Tool::Lint
