#include <fmt/format.h>
#include <ostream>

#include "commands/table.h"
#include "domains/table.h"
#include "host/host.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

void WritePosition(JsonWriter& json, const std::optional<FilePosition>& position) {
  for (const auto member : {&FilePosition::line, &FilePosition::column}) {
    json.Key(member == &FilePosition::line ? "line" : "column");
    if (position) {
      json.Number((*position).*member);
    } else {
      json.Null();
    }
  }
}

void WriteProblem(JsonWriter& json, const Problem& problem) {
  json.StartObject();
  json.Member("id", problem.message.id);
  json.Member("text", problem.message.Text());
  json.Key("arguments");
  json.StringArray(problem.message.arguments);
  WritePosition(json, problem.position);
  json.EndObject();
}

void WriteReport(JsonWriter& json, const LoadReport& report) {
  json.StartObject();
  json.Member("file", report.file);
  json.Member("domain", report.domain);
  json.Key("ok");
  json.Bool(report.problems.empty());
  json.Key("messages");
  json.StartArray();
  for (const Problem& problem : report.problems) WriteProblem(json, problem);
  json.EndArray();
  json.EndObject();
}

void WriteReport(std::ostream& out, const LoadReport& report) {
  if (report.problems.empty()) out << ForTerminal(report.file) << ": ok\n";
  for (const Problem& problem : report.problems) {
    out << ForTerminal(ProblemLine(report.file, problem)) << '\n';
  }
}

}  // namespace

/// What is wrong with each file, one line a problem; in JSON an array of one object a file.
ExitStatus RunCheck(const Arguments& arguments, const Streams& streams) {
  if (!arguments.sources.empty()) {
    PrintError(streams.err, "check takes the files as operands, not as --source");
    return ExitStatus::kUsage;
  }
  ExitStatus status = ExitStatus::kOk;
  JsonWriter json;
  json.StartArray();
  for (const std::string& file : arguments.files) {
    const LoadReport report = LoadAlone(file, Domains());
    if (!report.problems.empty()) status = ExitStatus::kSourceFailed;
    if (arguments.json) {
      WriteReport(json, report);
    } else {
      WriteReport(streams.out, report);
    }
  }
  json.EndArray();
  if (arguments.json) json.WriteTo(streams.out);
  return status;
}

}  // namespace Zelk::Tool
