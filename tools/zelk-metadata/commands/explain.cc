#include <fmt/format.h>

#include "analysis/near.h"
#include "diff/kinds.h"
#include "explain/explanations.h"
#include "language/invocation.h"
#include "lint/rules.h"

namespace Zelk::Tool {
namespace {

using Diff::WriteJson;
using Diff::WritePage;
using Lint::WriteJson;
using Lint::WritePage;
using Render::JsonWriter;
using Render::Page;

void WriteExample(Page& page, const Explain::Example& example) {
  if (example.command.empty() && example.create_in.empty()) return;
  page.Heading("Example:");
  if (!example.file.empty()) {
    page.Line(1, "With this text in FILE:");
    page.Paragraph(2, example.file);
  }
  if (!example.create_in.empty()) {
    page.Line(1, fmt::format("SourceSvc.Create of {}, with a path that does not exist",
                             example.create_in));
  } else {
    page.Line(1, fmt::format("{} {}", Render::kProgramName, example.command));
  }
}

void WritePage(Page& page, const Explain::Explanation& explanation) {
  page.Line(0, explanation.id);
  page.Line(1, explanation.text);
  page.Section("Means:", explanation.meaning);
  page.Section("Usual cause:", explanation.cause);
  WriteExample(page, explanation.example);
  page.Section("Fix:", explanation.fix);
}

void WriteJson(JsonWriter& json, const Explain::Explanation& explanation) {
  json.StartObject();
  json.Member("id", explanation.id);
  json.Member("text", explanation.text);
  json.Member("meaning", explanation.meaning);
  json.Member("cause", explanation.cause);
  json.Member("fix", explanation.fix);
  json.Key("example").StartObject();
  json.Member("file", explanation.example.file);
  json.Member("command", explanation.example.command);
  json.Member("create_in", explanation.example.create_in);
  json.EndObject();
  json.EndObject();
}

ExitStatus List(const Invocation& call) {
  const auto& all = Explain::Explanations();
  if (call.WantsJson()) {
    call.ShowJsonArray("messages", all,
                       [](JsonWriter& json, const auto& shown) { WriteJson(json, shown); });
    return ExitStatus::kOk;
  }
  Render::Table table({"ID", "TEXT"});
  for (const Explain::Explanation& explanation : all) {
    table.Add({explanation.id, explanation.Summary()});
  }
  call.Show(table);
  return ExitStatus::kOk;
}

/// What an id means; nothing for an unknown one.
template <typename Explained>
void Show(const Invocation& call, const char* array, const std::vector<const Explained*>& found) {
  if (call.WantsJson()) {
    return call.ShowJsonArray(
        array, found, [](JsonWriter& json, const Explained* shown) { WriteJson(json, *shown); });
  }
  Page page(call.Out(), call.GetStreams().out_terminal);
  for (const Explained* const shown : found) WritePage(page, *shown);
}

ExitStatus FailAsUnknown(const Invocation& call, const std::string& id) {
  std::vector<std::string> known;
  for (const Explain::Explanation& explanation : Explain::Explanations()) {
    known.push_back(explanation.id);
  }
  for (const Analysis::Lint::Rule* rule : Analysis::Lint::Rules()) known.emplace_back(rule->id);
  for (const Analysis::Diff::Kind* kind : Analysis::Diff::Kinds()) known.emplace_back(kind->id);
  return call.Fail(ExitStatus::kNotFound, fmt::format("unknown message, rule or change '{}'{}", id,
                                                      Analysis::Suggestion(id, known)));
}

ExitStatus RunExplain(Invocation& call) {
  const std::string& id = call.Args().text;
  if (id.empty()) return List(call);
  if (const auto* const rule = Analysis::Lint::FindRule(id)) {
    Show(call, "rules", std::vector{rule});
  } else if (const auto* const kind = Analysis::Diff::FindKind(id)) {
    Show(call, "kinds", std::vector{kind});
  } else {
    std::vector<const Explain::Explanation*> messages;
    if (const auto* const message = Explain::Find(id)) messages.push_back(message);
    Show(call, "messages", messages);
    if (messages.empty()) return FailAsUnknown(call, id);
  }
  return ExitStatus::kOk;
}

}  // namespace

Command ExplainCommand() {
  Command command;
  command.name = "explain";
  command.summary = "Explain a message, a rule or a change: what it means, and what to do";
  command.details =
      "Without an ID, all messages are listed; lint --list-rules lists the rules, and "
      "diff --list-changes the changes.\n";
  command.operands = {
      {"ID", Word::kMessageId, false, "The id of a message, a rule or a change", &Arguments::text}};
  command.outputs = {"text", "json"};
  command.example = "explain zelk.metadata.json.missing.field";
  command.takes_sources = false;
  command.run = RunExplain;
  return command;
}

}  // namespace Zelk::Tool
