#include "host/which.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"

namespace Zelk::Tool {
namespace {

/// The kinds that one can ask this of, with how many ids name one thing.
std::vector<Candidate> Askable(const Host& host, const std::string& name) {
  std::vector<Candidate> candidates;
  for (const FoundKind& found : host.FindKinds(name)) {
    if (const auto ids = IdsOfWhich(*found.kind)) candidates.push_back({found, *ids});
  }
  return candidates;
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
  json.Key(name);
  json.StartArray();
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
  json.Key("ids");
  json.StringArray(ids);
  WriteJson(json, "answering", decided.decision.answering);
  WriteJson(json, "passed_over", decided.decision.passed_over);
  json.Member("rule", RuleText(decided.found.kind->rule));
  json.EndObject();
}

void WritePage(Page& page, const Decided& decided, const Ids& ids) {
  page.Title(fmt::format("{}:{} {}", decided.found.row->name, decided.found.kind->name,
                         fmt::join(ids, " ")));
  WriteHolders(page, "Answers:", decided.decision.answering);
  if (decided.decision.answering.empty()) {
    page.Heading("Answers:");
    page.Line(1, "nobody");
  }
  WriteHolders(page, "Passed over:", decided.decision.passed_over);
  page.Heading("Rule:");
  page.Paragraph(1, RuleText(decided.found.kind->rule));
}

ExitStatus ComplainOfNobody(const Arguments& arguments, const std::vector<Candidate>& candidates,
                            const Streams& streams) {
  const std::string text =
      fmt::format("no source holds the {} {}", candidates.front().found.kind->name,
                  fmt::join(arguments.ids, " "));
  return ComplainOf(ServiceError{"", {Message{"", text, {}}}}, candidates, arguments.ids, streams);
}

void Write(const std::vector<Decided>& all, const Arguments& arguments, const Streams& streams) {
  JsonWriter json;
  Page page = MakePage(arguments, streams);
  json.StartArray();
  for (const Decided& decided : all) {
    if (arguments.json) {
      WriteJson(json, decided, arguments.ids);
    } else {
      if (&decided != &all.front()) streams.out << '\n';
      WritePage(page, decided, arguments.ids);
    }
  }
  json.EndArray();
  if (arguments.json) json.WriteTo(streams.out);
}

}  // namespace

std::optional<IdCount> IdsOfWhich(const Kind& kind) {
  if (kind.rule == Rule::kNone) return std::nullopt;
  const std::size_t most = kind.id_names.size();
  return IdCount{kind.get.call ? kind.get.ids.min : most, most};
}

/// Which source answers for a name, which are passed over, and by which rule.
ExitStatus RunWhich(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  const std::size_t id_count = arguments.ids.size();
  const auto askable = Askable(question.host, arguments.kind);
  if (Fitting(askable, id_count).empty()) {
    return ComplainOfKind("which", arguments, question.host, askable, streams);
  }
  question.Load(arguments, streams);
  question.candidates = Fitting(Askable(question.host, arguments.kind), id_count);
  std::vector<SourceOutline> sources;
  question.loaded = LoadOutlines(question.host, sources, streams) && question.loaded;
  std::vector<Decided> all;
  bool answered = false;
  for (const Candidate& candidate : question.candidates) {
    Decision decision = Decide(sources, candidate.found, arguments.ids);
    if (decision.answering.empty() && decision.passed_over.empty()) continue;
    answered = answered || !decision.answering.empty();
    all.push_back({candidate.found, std::move(decision)});
  }
  Write(all, arguments, streams);
  if (all.empty()) {
    return question.Status(ComplainOfNobody(arguments, question.candidates, streams));
  }
  return question.Status(answered ? ExitStatus::kOk : ExitStatus::kNotFound);
}

}  // namespace Zelk::Tool
