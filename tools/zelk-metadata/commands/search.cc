#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sstream>

#include "host/merged_outline.h"
#include "language/invocation.h"
#include "language/operands.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

/// `part` is in lower case.
bool Holds(const std::string& text, const std::string& part) {
  return LowerCase(text).find(part) != std::string::npos;
}

struct Hit {
  const DomainRow* row;
  const Entry* entry;
};

struct Hits {
  std::vector<Hit> by_name;
  std::vector<Hit> by_documentation;
};

/// In its own name. Only a text with a dot is looked for in the whole name, since otherwise
/// everything inside a hit would be a hit.
bool HoldsInName(const Entry& entry, const std::string& text) {
  if (Holds(entry.name, text)) return true;
  return text.find('.') != std::string::npos &&
         Holds(fmt::format("{}", fmt::join(entry.subject.ids, ".")), text);
}

void Search(const DomainOutline& domain, const std::string& text, Hits& hits) {
  for (const Entry& entry : domain.outline) {
    if (HoldsInName(entry, text)) {
      hits.by_name.push_back({domain.row, &entry});
    } else if (Holds(entry.documentation, text)) {
      hits.by_documentation.push_back({domain.row, &entry});
    }
  }
}

/// The first line that holds the text, or else the first line.
std::string Excerpt(const std::string& documentation, const std::string& text) {
  std::istringstream lines(documentation);
  std::string first;
  std::getline(lines, first);
  if (Holds(first, text)) return first;
  for (std::string line; std::getline(lines, line);) {
    if (Holds(line, text)) return line;
  }
  return first;
}

void AddRows(Table& table, const std::vector<Hit>& hits, const std::string& text) {
  for (const Hit& hit : hits) {
    table.Add({fmt::format("{}:{}", hit.row->name, hit.entry->subject.kind),
               fmt::format("{}", fmt::join(hit.entry->subject.ids, " ")),
               Excerpt(hit.entry->documentation, text)});
  }
}

void WriteHits(JsonWriter& json, const std::vector<Hit>& hits, const char* matched) {
  for (const Hit& hit : hits) {
    json.StartObject();
    json.Member("domain", hit.row->name);
    json.Member("kind", hit.entry->subject.kind);
    json.Key("ids");
    json.StringArray(hit.entry->subject.ids);
    json.Member("matched", std::string(matched));
    json.Member("documentation", hit.entry->documentation);
    json.EndObject();
  }
}

void Show(const Invocation& call, const Hits& hits, const std::string& text) {
  if (call.WantsJson()) {
    call.ShowJson([&hits](JsonWriter& json) {
      json.Key("matches");
      json.StartArray();
      WriteHits(json, hits.by_name, "name");
      WriteHits(json, hits.by_documentation, "documentation");
      json.EndArray();
    });
    return;
  }
  Table table({"KIND", "NAME", "TEXT"});
  AddRows(table, hits.by_name, text);
  AddRows(table, hits.by_documentation, text);
  call.Show(table);
}

/// Hits in names first, then those in documentation.
ExitStatus RunSearch(Invocation& call) {
  call.Load();
  const std::vector<DomainOutline> domains = MergedByDomain(call.Outlines());
  const std::string text = LowerCase(call.Args().text);
  Hits hits;
  for (const DomainOutline& domain : domains) Search(domain, text, hits);
  const bool found = !hits.by_name.empty() || !hits.by_documentation.empty();
  if (found || call.WantsJson()) Show(call, hits, text);
  if (found) return ExitStatus::kOk;
  return call.Fail(ExitStatus::kNotFound,
                   fmt::format("no name or documentation contains '{}'", call.Args().text));
}

}  // namespace

Command SearchCommand() {
  Command command;
  command.name = "search";
  command.summary = "Find names and documentation that contain a text";
  command.details =
      "Upper and lower case are the same. Names come first. A TEXT with a dot is searched in full\n"
      "names, any other TEXT only in their last part.\n";
  command.operands = {
      {"TEXT", Word::kText, true, "Part of a name or of documentation", &Arguments::text}};
  command.outputs = TableOutputs();
  command.example = "search md5 --source metadata";
  command.use = HostUse::kOutlines;
  command.run = RunSearch;
  return command;
}

}  // namespace Zelk::Tool
