#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "host/precedence.h"
#include "language/invocation.h"
#include "language/operands.h"
#include "language/questions.h"

namespace Zelk::Tool {
namespace {

using Render::JsonWriter;
using Render::Page;

/// The ids that name one thing, of the kinds that this can be asked for.
std::optional<IdCount> IdsOfWhich(const Kind& kind) {
  if (kind.precedence.rule == Rule::kNone) return std::nullopt;
  const std::size_t count = kind.id_kinds.size();
  return kind.get.call ? kind.get.ids : IdCount{count, count};
}

std::string HolderText(const Holder& holder) {
  const std::string place = PlaceText(holder);
  return fmt::format("{} ({}){}{}", holder.source->source.id, ShownName(holder.source->source),
                     place.empty() ? "" : ", in ", place);
}

void WriteHolders(Page& page, const char* heading, const std::vector<Holder>& holders) {
  if (holders.empty()) return;
  page.Heading(heading);
  for (const Holder& holder : holders) page.Line(1, HolderText(holder));
}

void WriteJson(JsonWriter& json, const char* name, const std::vector<Holder>& holders) {
  json.Key(name).StartArray();
  for (const Holder& holder : holders) {
    json.StartObject();
    json.Member("source", holder.source->source.id);
    json.Member("file", ShownName(holder.source->source));
    json.Member("place", PlaceText(holder));
    json.EndObject();
  }
  json.EndArray();
}

struct Decided {
  FoundKind found;
  Decision decision;
};

void WriteJson(JsonWriter& json, const Decided& decided, const Ids& ids) {
  json.StartObject();
  json.Member("domain", decided.found.row->name);
  json.Member("kind", decided.found.kind->name);
  json.Key("ids").StringArray(ids);
  WriteJson(json, "answering", decided.decision.answering);
  WriteJson(json, "passed_over", decided.decision.passed_over);
  json.Member("rule", std::string(decided.found.kind->precedence.text));
  json.EndObject();
}

void WritePage(Page& page, const Decided& decided, const Ids& ids) {
  page.Title(fmt::format("{}:{} {}", decided.found.row->name, decided.found.kind->name,
                         fmt::join(ids, " ")));
  WriteHolders(page, "Answers:", decided.decision.answering);
  if (decided.decision.answering.empty()) {
    page.Heading("Answers:");
    page.Line(1, "none");
  }
  WriteHolders(page, "Passed over:", decided.decision.passed_over);
  page.Heading("Rule:");
  page.Paragraph(1, decided.found.kind->precedence.text);
}

void Show(const Invocation& call, const std::vector<Decided>& all, const Ids& ids) {
  if (call.WantsJson()) {
    return call.ShowJsonArray("answers", all, [&ids](JsonWriter& json, const Decided& decided) {
      WriteJson(json, decided, ids);
    });
  }
  Page page = call.MakePage();
  for (const Decided& decided : all) {
    if (&decided != &all.front()) call.Out() << '\n';
    WritePage(page, decided, ids);
  }
}

/// Which source answers for a name, which are passed over, and by which rule.
ExitStatus RunWhich(Invocation& call) {
  const Ids ids = IdsOfOne(call.Args().ids, call.KindsCalled(call.Args().kind));
  const ExitStatus status = call.Prepare(call.Args().kind, ids.size());
  if (status != ExitStatus::kOk) return status;
  const std::vector<SourceOutline> sources = call.Outlines();
  std::vector<Decided> all;
  bool answered = false;
  for (const FoundKind& found : call.Kinds()) {
    Decision decision = Decide(sources, found, ids);
    if (decision.answering.empty() && decision.passed_over.empty()) continue;
    answered = answered || !decision.answering.empty();
    all.push_back({found, std::move(decision)});
  }
  Show(call, all, ids);
  if (!all.empty()) return answered ? ExitStatus::kOk : ExitStatus::kNotFound;
  const std::string text =
      fmt::format("no source has the {} {}", call.Kinds().front().kind->name, fmt::join(ids, " "));
  return call.FailAs(
      ServiceError{"", {Message{"", text, {}}}}, ids,
      [&sources](const FoundKind& found, const std::string& kind, const Ids& before) {
        return NamesOf(sources, *found.row, kind, before);
      });
}

}  // namespace

Command WhichCommand() {
  Command command;
  command.name = "which";
  command.summary = "Show which source answers for a name, which are passed over, and why";
  command.ids_of = IdsOfWhich;
  command.details = fmt::format(
      "Kinds: {}; with the ids that `get` takes, for model and resource that of the resource.\n",
      fmt::join(KindNames(command.ids_of), ", "));
  command.operands = {KindOperand(), IdsOperand()};
  command.outputs = TableOutputs();
  command.example =
      "which command metadata.cli.command.get --source a=metadata --source b=metadata";
  command.use = HostUse::kOutlines;
  command.run = RunWhich;
  return command;
}

}  // namespace Zelk::Tool
