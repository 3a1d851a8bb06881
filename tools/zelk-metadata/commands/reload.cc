#include <fmt/format.h>
#include <iterator>

#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

const char* NameOf(ReloadReport::State state) {
  switch (state) {
    case ReloadReport::State::kChanged:
      return "changed";
    case ReloadReport::State::kKept:
      return "kept";
    case ReloadReport::State::kSame:
      break;
  }
  return "same";
}

/// One line; the messages of the file follow elsewhere.
std::string Reason(const ReloadReport& report) {
  if (report.state != ReloadReport::State::kKept) return "";
  if (!report.moved_to.empty()) {
    return fmt::format("old data, since the file now belongs to {}; delete and create it",
                       report.moved_to);
  }
  if (!report.problems.empty()) return "old data, since the file fails to load";
  if (report.stopped_by.empty()) {  // coverage: the file must change between two reads
    return "old data, since the file changed meanwhile; reload it again";
  }
  return fmt::format("old data, since {}, which comes before it, fails; reload it by its id",
                     report.stopped_by);
}

void WriteJson(JsonWriter& json, const ReloadReport& report) {
  json.StartObject();
  json.Member("domain", report.domain);
  json.Member("source", report.id);
  json.Member("file", report.file);
  json.Member("state", NameOf(report.state));
  json.Member("reason", Reason(report));
  json.Key("problems");
  json.StartArray();
  for (const Problem& problem : report.problems) json.String(ProblemLine(report.file, problem));
  json.EndArray();
  json.EndObject();
}

void Show(const Invocation& call, const std::vector<ReloadReport>& reports) {
  if (call.WantsJson()) return call.ShowJsonArray("sources", reports, WriteJson);
  Table table({"STATE", "SOURCE", "FILE", "REASON"});
  for (const ReloadReport& report : reports) {
    table.Add({NameOf(report.state), report.domain + ":" + report.id, report.file, Reason(report)});
  }
  call.Show(table);
}

/// Reports what the service does not: which sources failed to reload and kept their old data.
ExitStatus RunReload(Invocation& call) {
  ExitStatus status = ExitStatus::kOk;
  std::vector<ReloadReport> reports;
  if (call.Args().ids.empty()) reports = call.GetHost().Reload(std::nullopt);
  for (const std::string& id : call.Args().ids) {
    std::vector<ReloadReport> more = call.GetHost().Reload(id);
    if (more.empty()) status = call.FailAsSource(id);
    std::move(more.begin(), more.end(), std::back_inserter(reports));
  }
  if (reports.empty() && status != ExitStatus::kOk) return status;
  Show(call, reports);
  for (const ReloadReport& report : reports) {
    for (const Problem& problem : report.problems) {
      call.Complain(ProblemLine(report.file, problem));
    }
    if (report.state == ReloadReport::State::kKept) status = ExitStatus::kSourceFailed;
  }
  return status;
}

}  // namespace

Command ReloadCommand() {
  Command command;
  command.name = "reload";
  command.summary = "Reload sources, and show which changed and which kept their old data";
  command.details =
      std::string(
          "Without an ID, all sources. A source whose file fails keeps its old data. So do the "
          "sources\n"
          "after it in its domain, in the order of the ids, unless they are reloaded by id.\n") +
      kAboutFolders;
  command.operands = {SourceIdsOperand(false)};
  command.outputs = TableOutputs();
  command.scope = Scope::kSession;
  command.run = RunReload;
  return command;
}

}  // namespace Zelk::Tool
