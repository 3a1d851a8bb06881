#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {
namespace {

void WriteJson(const Answers<Names>& answers, std::ostream& out) {
  JsonWriter json;
  json.StartArray();
  for (const auto& answer : answers) {
    for (const std::string& name : answer.value) json.String(name);
  }
  json.EndArray();
  json.WriteTo(out);
}

/// The domain is told only to people, and where there are several.
Table MakeTable(const Answers<Names>& answers, bool with_domains) {
  Table table(with_domains ? Names{"DOMAIN", "NAME"} : Names{"NAME"});
  for (const auto& answer : answers) {
    for (const std::string& name : answer.value) {
      table.Add(with_domains ? Names{answer.row->name, name} : Names{name});
    }
  }
  return table;
}

}  // namespace

/// The names, one a line; in JSON an array of them. Those of several domains follow each other.
ExitStatus RunList(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  ExitStatus status =
      Prepare(question, "list", &Kind::list, arguments, arguments.ids.size(), streams);
  if (status != ExitStatus::kOk) return status;
  question.TellIfEmpty(streams);
  Answers<Names> answers;
  status = Ask(&Kind::list, question.candidates, arguments.ids, streams, answers);
  if (status != ExitStatus::kOk) return question.Status(status);
  if (arguments.json) {
    WriteJson(answers, streams.out);
  } else {
    const bool with_domains = answers.size() > 1 && IsForPeople(arguments, streams);
    WriteTable(MakeTable(answers, with_domains), arguments, streams);
  }
  return question.Status(status);
}

}  // namespace Zelk::Tool
