#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <ostream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"
#include "host/merged_outline.h"

namespace Zelk::Tool {
namespace {

constexpr std::array<const char*, 6> kKinds{"component", "package",   "service",
                                            "operation", "namespace", "command"};
using Counts = std::array<std::size_t, kKinds.size()>;

/// The place of the kind among those that a tree shows; their number for one that it does not.
std::size_t KindIndex(const Entry& entry) {
  return static_cast<std::size_t>(std::find(kKinds.begin(), kKinds.end(), entry.subject.kind) -
                                  kKinds.begin());
}

bool IsShown(const Entry& entry) {
  return KindIndex(entry) < kKinds.size();
}

/// The lines of a tree: the domain itself, then what is in it one level deeper.
struct Line {
  std::size_t depth;
  const Entry* entry;
  Counts counts;
};

std::vector<Line> Lines(const Outline& outline) {
  std::vector<Line> lines{{0, nullptr, {}}};
  for (const Entry& entry : outline) {
    if (IsShown(entry)) lines.push_back({entry.depth + 1, &entry, {}});
  }
  // From the end, so that what is inside has been counted before. Each depth keeps what the lines
  // below add to the next line above that is less deep.
  std::vector<Counts> inside;
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    inside.resize(std::max(inside.size(), line->depth + 2));
    line->counts = inside[line->depth + 1];
    inside[line->depth + 1] = {};
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
      inside[line->depth][i] += line->counts[i];
    }
    if (line->entry != nullptr) ++inside[line->depth][KindIndex(*line->entry)];
  }
  return lines;
}

/// " (1 package, 3 services)", or nothing for a leaf.
std::string CountsText(const Counts& counts) {
  std::string text;
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (counts[i] == 0) continue;
    text += fmt::format("{}{} {}{}", text.empty() ? " (" : ", ", counts[i], kKinds[i],
                        counts[i] == 1 ? "" : "s");
  }
  return text.empty() ? text : text + ")";
}

void WritePage(Page& page, const DomainRow& row, const std::vector<Line>& lines,
               std::size_t depth) {
  for (const Line& line : lines) {
    if (line.depth > depth) continue;
    const std::string counts = CountsText(line.counts);
    if (line.entry == nullptr) {
      page.Title(row.name + counts);
    } else {
      page.Line(line.depth,
                fmt::format("{} {}{}", line.entry->subject.kind, line.entry->name, counts));
    }
  }
}

void WriteCounts(JsonWriter& json, const Counts& counts) {
  json.Key("counts");
  json.StartObject();
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (counts[i] == 0) continue;
    json.Key(kKinds[i]);
    json.Number(counts[i]);
  }
  json.EndObject();
}

/// An object of one line, up to the array of those inside, which stays open.
void OpenJson(JsonWriter& json, const DomainRow& row, const Line& line) {
  json.StartObject();
  json.Member("kind", line.entry == nullptr ? std::string("domain") : line.entry->subject.kind);
  json.Member("name", line.entry == nullptr ? row.name : line.entry->name);
  json.Key("ids");
  json.StringArray(line.entry == nullptr ? Ids() : line.entry->subject.ids);
  WriteCounts(json, line.counts);
  json.Key("children");
  json.StartArray();
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

}  // namespace

/// Everything that is loaded, each thing below what it is in, with how many there are in it.
ExitStatus RunTree(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  question.Load(arguments, streams);
  question.TellIfEmpty(streams);
  std::vector<SourceOutline> sources;
  question.loaded = LoadOutlines(question.host, sources, streams) && question.loaded;
  Page page = MakePage(arguments, streams);
  JsonWriter json;
  json.StartArray();
  for (const DomainOutline& domain : MergedByDomain(sources)) {
    const std::vector<Line> lines = Lines(domain.outline);
    if (arguments.json) {
      WriteJson(json, *domain.row, lines, arguments.depth);
    } else {
      WritePage(page, *domain.row, lines, arguments.depth);
    }
  }
  json.EndArray();
  if (arguments.json) json.WriteTo(streams.out);
  return question.Status(ExitStatus::kOk);
}

}  // namespace Zelk::Tool
