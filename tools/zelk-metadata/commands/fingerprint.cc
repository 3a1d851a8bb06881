#include <fmt/format.h>
#include <fmt/ranges.h>

#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

using Fingerprint = Answer<std::string>;

void WriteJson(Render::JsonWriter& json, const Fingerprint& answer) {
  json.StartObject();
  json.Member("domain", answer.row->name);
  json.Member("kind", answer.kind->name);
  json.Key("ids").StringArray(answer.ids);
  json.Member("fingerprint", answer.value);
  json.EndObject();
}

/// What it is the fingerprint of, as the user would write it.
std::string SubjectText(const Fingerprint& answer) {
  return fmt::format("{}:{}{}{}", answer.row->name, answer.kind->name,
                     answer.ids.empty() ? "" : " ", fmt::join(answer.ids, " "));
}

/// The digits, followed by what they are the fingerprint of if people read or several domains
/// answer. Without a kind, that of all sources of a domain together.
ExitStatus RunFingerprint(Invocation& call) {
  const Ids& ids = call.Args().ids;
  const std::string kind = call.Args().kind.empty() ? "source" : call.Args().kind;
  ExitStatus status = call.Prepare(kind, ids.size());
  if (status != ExitStatus::kOk) return status;
  if (!call.HasSources()) return ExitStatus::kUsage;
  Answers<std::string> answers;
  status = call.Ask(&Kind::fingerprint, ids, answers);
  if (call.WantsJson()) {
    call.ShowJsonArray("fingerprints", answers, WriteJson);
    return status;
  }
  if (status != ExitStatus::kOk) return status;
  const bool with_subjects = answers.size() > 1 || call.IsForPeople();
  Render::Table table(with_subjects ? Names{"FINGERPRINT", "OF"} : Names{"FINGERPRINT"});
  for (const Fingerprint& answer : answers) {
    table.Add(with_subjects ? Names{answer.value, SubjectText(answer)} : Names{answer.value});
  }
  call.Show(table);
  return status;
}

}  // namespace

Command FingerprintCommand() {
  Command command;
  command.name = "fingerprint";
  command.summary = "Print a digest that changes when the metadata does";
  command.ids_of = IdsOfQuery<&Kind::fingerprint>;
  command.details =
      "Without a KIND, the digest of all sources of a domain. Only the digits are printed if one "
      "domain answers and --output is plain, as it is outside a terminal.\n\n" +
      KindsText(command.ids_of);
  command.operands = {KindOperand(false), IdsOperand()};
  command.outputs = TableOutputs();
  command.example = "fingerprint --source metadata";
  command.run = RunFingerprint;
  return command;
}

}  // namespace Zelk::Tool
