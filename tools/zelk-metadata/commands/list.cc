#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

/// Domains are shown only to people, and if there are several.
Table MakeTable(const Answers<Names>& answers, bool with_domains) {
  Table table(with_domains ? Names{"DOMAIN", "NAME"} : Names{"NAME"});
  for (const auto& answer : answers) {
    for (const std::string& name : answer.value) {
      table.Add(with_domains ? Names{answer.row->name, name} : Names{name});
    }
  }
  return table;
}

/// An object for each name.
void WriteJson(JsonWriter& json, const Answer<Names>& answer) {
  for (const std::string& name : answer.value) {
    json.StartObject();
    json.Member("domain", answer.row->name);
    json.Member("kind", answer.kind->name);
    json.Member("name", name);
    json.EndObject();
  }
}

/// The names, one a line. Those of several domains follow each other.
ExitStatus RunList(Invocation& call) {
  const Ids& ids = call.Args().ids;
  ExitStatus status = call.Prepare(call.Args().kind, ids.size());
  if (status != ExitStatus::kOk) return status;
  call.NoteIfEmpty();
  Answers<Names> answers;
  status = call.Ask(&Kind::list, ids, answers);
  if (call.WantsJson()) {
    call.ShowJsonArray("names", answers, WriteJson);
  } else if (status == ExitStatus::kOk) {
    call.Show(MakeTable(answers, answers.size() > 1 && call.IsForPeople()));
  }
  return status;
}

}  // namespace

Command ListCommand() {
  Command command;
  command.name = "list";
  command.summary = "List the names of a kind, or of what belongs to an ID";
  command.ids_of = IdsOfQuery<&Kind::list>;
  command.details =
      "A kind of several domains is listed for all of them, one after the other; write "
      "DOMAIN:KIND\n"
      "for one of them. --output plain and json print only the names.\n\n" +
      KindsText(command.ids_of);
  command.operands = {KindOperand(), IdsOperand()};
  command.outputs = TableOutputs();
  command.example =
      "list operations com.orvane.zelk.metadata.metamodel.component --source metadata";
  command.run = RunList;
  return command;
}

}  // namespace Zelk::Tool
