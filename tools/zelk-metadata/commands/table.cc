#include "commands/table.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "commands/query.h"

namespace Zelk::Tool {
namespace {

std::string KindsText(const Names& usages) {
  return fmt::format("Kinds, which may be written in the plural, too:\n  {}\n",
                     fmt::join(usages, "\n  "));
}

OperandDescription KindOperand(bool required) {
  return {"KIND", Word::kKind, required, "One of the kinds below", &Arguments::kind};
}

const OperandDescription kIds{"ID", Word::kId, false, "As many ids as the kind takes",
                              &Arguments::ids};

const std::vector<std::string> kOutputs{"table", "plain", "json"};

Command Check() {
  return {{"check",
           "Load files by themselves and tell what is wrong with them",
           "",
           {{"FILE", Word::kPath, true,
             "Files of metadata, each loaded by itself; - is standard input", &Arguments::files}},
           {},
           {"text", "json", "github"},
           "check metadata/metamodel/zelk-metadata.json"},
          RunCheck};
}

Command Explain() {
  return {{"explain",
           "Explain a message: what it means, what causes it, how to mend it",
           "Without an ID, the ids of all messages are listed.\n\n",
           {{"ID", Word::kText, false, "The id of a message", &Arguments::text}},
           {},
           {"text", "json"},
           "explain zelk.metadata.json.missing.field"},
          RunExplain};
}

Command List() {
  return {{"list",
           "List the names of a kind, or of what belongs to an ID",
           KindsText(Usages(&Kind::list)),
           {KindOperand(true), kIds},
           {},
           kOutputs,
           "list operations com.orvane.zelk.metadata.metamodel.component "
           "--source metadata/metamodel/zelk-metadata.json"},
          RunList};
}

Command Get() {
  return {{"get",
           "Show what there is to know about one ID",
           KindsText(Usages(&Kind::get)),
           {KindOperand(true), kIds},
           {},
           kOutputs,
           "get operation com.orvane.zelk.metadata.metamodel.component get "
           "--source metadata/metamodel/zelk-metadata.json"},
          RunGet};
}

Command Fingerprint() {
  return {{"fingerprint",
           "Print a digest that changes when the metadata does",
           KindsText(Usages(&Kind::fingerprint)),
           {KindOperand(false), kIds},
           {},
           kOutputs,
           "fingerprint component com.orvane.zelk.metadata "
           "--source metadata/metamodel/zelk-metadata.json"},
          RunFingerprint};
}

}  // namespace

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands{Check(), Explain(), List(), Get(), Fingerprint()};
  return commands;
}

const std::vector<OptionDescription>& SharedOptions() {
  static const std::vector<OptionDescription> options{
      {"source",
       "[ID=]FILE",
       Word::kSource,
       {},
       "Load FILE first; may be given several times",
       &Arguments::sources},
      {"output",
       "FORMAT",
       Word::kChoice,
       {},
       "table, plain or json; unless given, a table on a terminal, else plain",
       &Arguments::output},
      {"json", "", Word::kNone, {}, "The same as --output json", &Arguments::json},
  };
  return options;
}

}  // namespace Zelk::Tool
