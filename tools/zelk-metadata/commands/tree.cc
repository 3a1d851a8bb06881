#include <algorithm>
#include <fmt/format.h>

#include "analysis/near.h"
#include "host/merged_outline.h"
#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

using Render::JsonWriter;

/// The kinds that a tree shows.
const Names& ShownKinds() {
  static const Names kinds = KindNames([](const Kind& kind) {
    return kind.in_tree ? std::optional<IdCount>(IdCount{}) : std::nullopt;
  });
  return kinds;
}

/// One for each shown kind.
using Counts = std::vector<std::size_t>;

/// The place of the kind among those that a tree shows; their number for one that it does not.
std::size_t KindIndex(const Entry& entry) {
  const Names& kinds = ShownKinds();
  return static_cast<std::size_t>(std::find(kinds.begin(), kinds.end(), entry.subject.kind) -
                                  kinds.begin());
}

/// Leaves only the kinds that are shown: most entries are not, and nothing shown is inside of them.
void DropHidden(Outline& outline) {
  outline.erase(
      std::remove_if(outline.begin(), outline.end(),
                     [](const Entry& entry) { return KindIndex(entry) == ShownKinds().size(); }),
      outline.end());
}

/// The outermost entries with the id, with everything in them.
Outline PartsWithId(const Outline& outline, const std::string& id) {
  Outline part;
  for (auto entry = outline.begin(); entry != outline.end();) {
    const std::size_t depth = entry->depth;
    if (Dotted(entry->subject.ids) != id) {
      ++entry;
      continue;
    }
    do {
      part.push_back(*entry);
      part.back().depth -= depth;
    } while (++entry != outline.end() && entry->depth > depth);
  }
  return part;
}

/// The lines of a tree: the domain itself, then what is in it one level deeper.
struct Line {
  std::size_t depth;
  const Entry* entry;
  Counts counts;
};

std::vector<Line> Lines(const Outline& outline) {
  const Counts none(ShownKinds().size(), 0);
  std::vector<Line> lines{{0, nullptr, none}};
  for (const Entry& entry : outline) lines.push_back({entry.depth + 1, &entry, none});
  // From the end, so that what is inside has been counted before. Each depth keeps what the lines
  // below add to the next line above that is less deep.
  std::vector<Counts> inside;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    inside.resize(std::max(inside.size(), line->depth + 2), none);
    line->counts = inside[line->depth + 1];
    inside[line->depth + 1] = none;
    for (std::size_t i = 0; i < none.size(); ++i) {
      inside[line->depth][i] += line->counts[i];
    }
    if (line->entry != nullptr) ++inside[line->depth][KindIndex(*line->entry)];
  }
  return lines;
}

/// " (1 package, 3 services)", or nothing for a leaf.
std::string CountsText(const Counts& counts) {
  std::string text;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] == 0) continue;
    text += fmt::format("{}{} {}{}", text.empty() ? " (" : ", ", counts[i], ShownKinds()[i],
                        counts[i] == 1 ? "" : "s");
  }
  return text.empty() ? text : text + ")";
}

void WritePage(Render::Page& page, const DomainRow& row, const std::vector<Line>& lines,
               std::size_t depth) {
  for (const Line& line : lines) {
    if (line.depth > depth) continue;
    const std::string counts = CountsText(line.counts);
    if (line.entry == nullptr) {
      page.Title(row.name + (counts.empty() ? " (nothing)" : counts));
    } else {
      page.Line(line.depth,
                fmt::format("{} {}{}", line.entry->subject.kind, line.entry->Name(), counts));
    }
  }
}

void WriteCounts(JsonWriter& json, const Counts& counts) {
  json.Key("counts").StartObject();
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] == 0) continue;
    json.Key(ShownKinds()[i]).Number(counts[i]);
  }
  json.EndObject();
}

/// An object of one line, up to the array of those inside, which stays open.
void OpenJson(JsonWriter& json, const DomainRow& row, const Line& line) {
  json.StartObject();
  json.Member("kind", line.entry == nullptr ? std::string("domain") : line.entry->subject.kind);
  json.Member("name", line.entry == nullptr ? row.name : line.entry->Name());
  json.Key("ids").StringArray(line.entry == nullptr ? Ids() : line.entry->subject.ids);
  WriteCounts(json, line.counts);
  json.Key("children").StartArray();
}

void CloseJson(JsonWriter& json) {
  json.EndArray();
  json.EndObject();
}

void WriteJson(JsonWriter& json, const DomainRow& row, const std::vector<Line>& lines,
               std::size_t depth) {
  std::vector<std::size_t> open;
  for (const Line& line : lines) {
    if (line.depth > depth) continue;
    for (; !open.empty() && open.back() >= line.depth; open.pop_back()) CloseJson(json);
    OpenJson(json, row, line);
    open.push_back(line.depth);
  }
  for (; !open.empty(); open.pop_back()) CloseJson(json);
}

/// Leaves only what has the id; nothing of domains without it.
void Narrow(std::vector<DomainOutline>& domains, const std::string& id) {
  for (DomainOutline& domain : domains) domain.outline = PartsWithId(domain.outline, id);
  domains.erase(std::remove_if(domains.begin(), domains.end(),
                               [](const DomainOutline& domain) { return domain.outline.empty(); }),
                domains.end());
}

Names ShownIds(const std::vector<DomainOutline>& domains) {
  Names ids;
  for (const DomainOutline& domain : domains) {
    for (const Entry& entry : domain.outline) ids.push_back(Dotted(entry.subject.ids));
  }
  return ids;
}

void Show(Invocation& call, const std::vector<DomainOutline>& domains) {
  const std::size_t depth = call.Args().depth;
  if (call.WantsJson()) {
    call.ShowJsonArray("entries", domains, [depth](JsonWriter& json, const DomainOutline& domain) {
      WriteJson(json, *domain.row, Lines(domain.outline), depth);
    });
    return;
  }
  Render::Page page = call.MakePage();
  for (const DomainOutline& domain : domains) {
    WritePage(page, *domain.row, Lines(domain.outline), depth);
  }
}

/// Everything that is loaded or that has the ID, each thing below its parent, with how many there
/// are in it.
ExitStatus RunTree(Invocation& call) {
  call.Load();
  call.NoteIfEmpty();
  std::vector<SourceOutline> sources = call.Outlines();
  for (SourceOutline& source : sources) DropHidden(source.outline);
  std::vector<DomainOutline> domains = MergedByDomain(std::move(sources));
  const std::string& id = call.Args().text;
  if (id.empty()) {
    Show(call, domains);
    return ExitStatus::kOk;
  }
  const Names known = ShownIds(domains);
  Narrow(domains, id);
  Show(call, domains);
  if (!domains.empty()) return ExitStatus::kOk;
  return call.Fail(ExitStatus::kNotFound, fmt::format("nothing in the tree has the id '{}'{}", id,
                                                      Analysis::Suggestion(id, known)));
}

}  // namespace

Command TreeCommand() {
  Command command;
  command.name = "tree";
  command.summary = "Show what is loaded, or what is in one ID, each thing below its parent";
  command.details =
      "Shows components, packages, services and operations, and namespaces and commands, with the "
      "number of each in a thing. A thing that is in several sources is shown once. The ID of an "
      "operation is SERVICE.OPERATION. If a component and a package have the ID, it is that of the "
      "component.\n";
  command.operands = {{"ID", Word::kTreeId, false, "Show only what has this id, with what is in it",
                       &Arguments::text}};
  command.options = {{"depth", "LEVELS", Word::kNumber, "How many levels to show below the domains",
                      &Arguments::depth}};
  command.outputs = TableOutputs();
  command.example = "tree --depth 1 --source metadata";
  command.use = HostUse::kOutlines;
  command.run = RunTree;
  return command;
}

}  // namespace Zelk::Tool
