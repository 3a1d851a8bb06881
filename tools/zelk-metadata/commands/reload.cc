#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <ostream>
#include <utility>

#include "language/invocation.h"
#include "language/operands.h"
#include "language/sources.h"

namespace Zelk::Tool {
namespace {

using State = ReloadReport::State;

const char* NameOf(State state) {
  switch (state) {
    case State::kChanged:
      return "changed";
    case State::kKept:
      return "kept";
    case State::kNew:
      return "new";
    case State::kFailed:
      return "failed";
    case State::kRemoved:
      return "removed";
    case State::kSame:
      break;
  }
  return "same";
}

/// One line; what is wrong with the file follows elsewhere.
std::string Reason(const ReloadReport& report) {
  if (report.state != State::kKept) return "";
  if (!report.moved_to.empty()) {
    return fmt::format("old data, since the file now belongs to {}; delete and create it",
                       report.moved_to);
  }
  if (report.problems.empty()) {  // coverage: the file must change between two reads
    return "old data, since the file changed meanwhile; reload it again";
  }
  return "old data, since the file fails to load";
}

std::string SourceText(const ReloadReport& report) {
  // A folder that cannot be read has no id.
  return report.domain.empty() ? report.file : report.domain + ":" + report.id;
}

/// "333 sources: 2 changed, 1 new, 330 the same".
std::string Summary(const std::vector<ReloadReport>& reports) {
  Names counts;
  const std::pair<State, const char*> words[] = {
      {State::kChanged, "changed"}, {State::kNew, "new"},       {State::kRemoved, "removed"},
      {State::kKept, "kept"},       {State::kFailed, "failed"}, {State::kSame, "the same"}};
  for (const auto& [state, word] : words) {
    const auto count =
        std::count_if(reports.begin(), reports.end(),
                      [wanted = state](const auto& report) { return report.state == wanted; });
    if (count > 0) counts.push_back(fmt::format("{} {}", count, word));
  }
  return fmt::format("{} source{}{}{}", reports.size(), reports.size() == 1 ? "" : "s",
                     counts.empty() ? "" : ": ", fmt::join(counts, ", "));
}

void WriteJson(Render::JsonWriter& json, const ReloadReport& report) {
  json.StartObject();
  json.Member("domain", report.domain);
  json.Member("source", report.id);
  json.Member("file", report.file);
  json.Member("state", NameOf(report.state));
  json.Member("reason", Reason(report));
  json.Key("problems").StartArray();
  for (const Problem& problem : report.problems) json.String(ProblemLine(report.file, problem));
  json.EndArray();
  json.EndObject();
}

/// What changed, and how much did not.
void Show(const Invocation& call, const std::vector<ReloadReport>& reports) {
  if (call.WantsJson()) return call.ShowJsonArray("sources", reports, WriteJson);
  Render::Table table({"STATE", "SOURCE"});
  bool has_rows = false;
  for (const ReloadReport& report : reports) {
    if (report.state == State::kSame) continue;
    table.Add({NameOf(report.state), SourceText(report)});
    has_rows = true;
  }
  if (has_rows) call.Show(table);
  call.Out() << Summary(reports) << '\n';
}

/// Reports what the service does not: which sources failed to reload and kept their old data.
void Complain(const Invocation& call, const ReloadReport& report) {
  const std::string reason = Reason(report);
  if (!reason.empty()) call.Complain(report.file + ": " + reason);
  for (const Problem& problem : report.problems) {
    if (problem.severity != Severity::kNote) call.Complain(ProblemLine(report.file, problem));
  }
}

ExitStatus RunReload(Invocation& call) {
  const auto reload = [&call](const std::optional<std::string>& id) {
    return ReloadSources(call.GetHost(), id, call.GetStreams());
  };
  ExitStatus status = ExitStatus::kOk;
  std::vector<ReloadReport> reports;
  if (call.Args().ids.empty()) reports = reload(std::nullopt);
  for (const std::string& id : call.Args().ids) {
    std::vector<ReloadReport> more = reload(id);
    if (more.empty()) status = call.FailAsSource(id);
    std::move(more.begin(), more.end(), std::back_inserter(reports));
  }
  if (reports.empty() && status != ExitStatus::kOk) return status;
  Show(call, reports);
  for (const ReloadReport& report : reports) {
    Complain(call, report);
    const bool has_failed = report.state == State::kKept || report.state == State::kFailed;
    if (has_failed) status = ExitStatus::kSourceFailed;
  }
  return status;
}

}  // namespace

Command ReloadCommand() {
  Command command;
  command.name = "reload";
  command.summary = "Reload sources, and show what changed";
  command.details =
      std::string(
          "Without an ID, all sources. Then files that are new in folders are loaded, and the "
          "sources of files that are gone from folders are deleted. A source whose file fails to "
          "load keeps its old data.\n") +
      kAboutFolders;
  command.operands = {SourceIdsOperand(false)};
  command.outputs = TableOutputs();
  command.scope = Scope::kSession;
  command.run = RunReload;
  return command;
}

}  // namespace Zelk::Tool
