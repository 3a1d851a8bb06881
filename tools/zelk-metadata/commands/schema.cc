#include "analysis/schema/schema.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "analysis/near.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

namespace Schema = Analysis::Schema;

ExitStatus FailAsUnknown(const Invocation& call, const std::string& what, const std::string& word,
                         const std::vector<std::string>& words) {
  return call.Fail(ExitStatus::kUsage,
                   fmt::format("unknown {} '{}'; the {}s are {}{}", what, word, what,
                               fmt::join(words, ", "), Analysis::Suggestion(word, words)));
}

ExitStatus RunSchema(Invocation& call) {
  const std::string name = call.Args().text.empty() ? "all" : call.Args().text;
  const std::string draft = call.Args().draft.empty() ? "7" : call.Args().draft;
  const auto& names = Schema::Names();
  if (std::find(names.begin(), names.end(), name) == names.end()) {
    return FailAsUnknown(call, "schema", name, names);
  }
  const std::vector<std::string> drafts{"7", "2020-12"};
  if (draft != drafts[0] && draft != drafts[1]) return FailAsUnknown(call, "draft", draft, drafts);
  call.Out() << Schema::Text(name,
                             call.Args().accepts ? Schema::Kind::kAccepts : Schema::Kind::kStrict,
                             draft == drafts[0] ? Schema::Draft::k7 : Schema::Draft::k2020);
  return ExitStatus::kOk;
}

}  // namespace

Command SchemaCommand() {
  Command command;
  command.name = "schema";
  command.summary = "Print the JSON Schema of a format";
  command.details =
      "Editors that know the schema complete keys and mark mistakes; docs/editors.md shows how. "
      "'all' is for files of any domain, 'project' for .zelk-metadata.json. The schemas are "
      "installed in share/zelk-metadata/schemas, too.\n";
  command.operands = {{"SCHEMA", Word::kChoice, false,
                       "metamodel, authentication, cli, all or project; all by default",
                       &Arguments::text, Schema::Names()}};
  command.options = {
      {"accepts", "", Word::kNone, "What the library loads, instead of what authors should write",
       &Arguments::accepts},
      {"draft", "DRAFT", Word::kText, "The draft of JSON Schema: 7, the default, or 2020-12",
       &Arguments::draft}};
  command.example = "schema cli";
  command.scope = Scope::kProgram;
  command.takes_sources = false;
  command.run = RunSchema;
  return command;
}

}  // namespace Zelk::Tool
