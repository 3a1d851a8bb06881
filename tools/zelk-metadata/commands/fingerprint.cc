#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {
namespace {

using Fingerprint = Answer<std::string>;

void WriteJson(JsonWriter& json, const Fingerprint& answer) {
  json.StartObject();
  json.Member("domain", answer.row->name);
  json.Member("kind", answer.kind->name);
  json.Key("ids");
  json.StringArray(answer.ids);
  json.Member("fingerprint", answer.value);
  json.EndObject();
}

void WriteJson(const Answers<std::string>& answers, std::ostream& out) {
  JsonWriter json;
  if (answers.size() != 1) json.StartArray();
  for (const Fingerprint& answer : answers) WriteJson(json, answer);
  if (answers.size() != 1) json.EndArray();
  json.WriteTo(out);
}

/// What it is the fingerprint of, as the user would write it.
std::string SubjectText(const Fingerprint& answer) {
  return fmt::format("{}:{}{}{}", answer.row->name, answer.kind->name,
                     answer.ids.empty() ? "" : " ", fmt::join(answer.ids, " "));
}

}  // namespace

/// The digits, and behind them, where people read or several domains answer, what they are the
/// fingerprint of. Without a kind, that of all sources of a domain together.
ExitStatus RunFingerprint(const Arguments& arguments, const Streams& streams) {
  Arguments asked = arguments;
  if (asked.kind.empty()) asked.kind = "source";
  Question question(streams);
  ExitStatus status =
      Prepare(question, "fingerprint", &Kind::fingerprint, asked, arguments.ids.size(), streams);
  if (status != ExitStatus::kOk) return status;
  Answers<std::string> answers;
  status = Ask(&Kind::fingerprint, question.candidates, arguments.ids, streams, answers);
  if (status != ExitStatus::kOk) return question.Status(status);
  if (arguments.json) {
    WriteJson(answers, streams.out);
    return question.Status(status);
  }
  const bool with_subjects = answers.size() > 1 || IsForPeople(arguments, streams);
  Table table(with_subjects ? Names{"FINGERPRINT", "OF"} : Names{"FINGERPRINT"});
  for (const Fingerprint& answer : answers) {
    table.Add(with_subjects ? Names{answer.value, SubjectText(answer)} : Names{answer.value});
  }
  WriteTable(table, arguments, streams);
  return question.Status(status);
}

}  // namespace Zelk::Tool
