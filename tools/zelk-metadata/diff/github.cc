#include <string>

#include "check/output.h"
#include "diff/report.h"
#include "host/git_input.h"
#include "host/named_place.h"
#include "render/workflow_command.h"

namespace Zelk::Tool::Diff {
namespace {

const char* CommandFor(Class worst) {
  switch (worst) {
    case Class::kBreaking:
      return "error";
    case Class::kDangerous:
      return "warning";
    default:
      return "notice";
  }
}

/// In the new version, which the annotation is shown in. What is only in the old version is shown
/// at its file.
Render::WorkflowCommand CommandOf(const Report& report, const Entry& entry) {
  const Change& change = *entry.change;
  Render::WorkflowCommand command{CommandFor(entry.worst), PathOfRevision(report.new_version.name)};
  if (change.new_place) {
    const NamedPlace place = NamedPlaceOf(*report.new_version.workspace, *change.new_place);
    command.file = PathOfRevision(place.file);
    command.line = place.position.line;
    command.column = place.position.column;
  } else if (change.old_place) {
    command.file =
        PathOfRevision(NamedPlaceOf(*report.old_version.workspace, *change.old_place).file);
  }
  command.title = change.kind->id;
  command.text = OpensAccess(change) ? "access is opened: " : "";
  command.text += Analysis::Shortened(change.details.message, 1000);
  for (const std::string& more : {change.details.witness, change.details.hint}) {
    if (!more.empty()) command.text += " (" + more + ")";
  }
  return command;
}

}  // namespace

void WriteGithub(std::ostream& out, const Report& report) {
  for (const Side* side : {&report.old_version, &report.new_version}) {
    for (const FailedFile& file : side->failed) {
      LoadReport report_of = file.report;
      report_of.file = PathOfRevision(report_of.file);
      Check::WriteCheckedCommands(out, report_of);
    }
  }
  Render::WorkflowCommands commands(out, "diff");
  for (const Entry& entry : report.entries) {
    if (entry.accepted == nullptr) commands.Add(CommandOf(report, entry));
  }
  for (const Unused& entry : report.unused) {
    commands.Add({"warning", entry.file, 0, 0, "unused-entry", entry.problem});
  }
  commands.End();
}

}  // namespace Zelk::Tool::Diff
