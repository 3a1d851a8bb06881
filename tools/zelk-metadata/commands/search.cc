#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>
#include <sstream>

#include "commands/output.h"
#include "commands/query.h"
#include "commands/table.h"
#include "host/merged_outline.h"

namespace Zelk::Tool {
namespace {

/// Upper and lower case make no difference in ASCII.
std::string Folded(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 'a' - 'A');
  }
  return text;
}

bool Holds(const std::string& text, const std::string& folded_part) {
  return Folded(text).find(folded_part) != std::string::npos;
}

struct Hit {
  const DomainRow* row;
  const Entry* entry;
};

struct Hits {
  std::vector<Hit> by_name;
  std::vector<Hit> by_documentation;
};

/// The name where the thing stands; a text with a dot may also be a part of its whole name, which
/// otherwise would make a hit of everything inside of a hit.
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

void WriteJson(const Hits& hits, std::ostream& out) {
  JsonWriter json;
  json.StartArray();
  WriteHits(json, hits.by_name, "name");
  WriteHits(json, hits.by_documentation, "documentation");
  json.EndArray();
  json.WriteTo(out);
}

}  // namespace

/// What is called so first, then what is described so.
ExitStatus RunSearch(const Arguments& arguments, const Streams& streams) {
  Question question(streams);
  question.Load(arguments, streams);
  std::vector<SourceOutline> sources;
  question.loaded = LoadOutlines(question.host, sources, streams) && question.loaded;
  const std::vector<DomainOutline> domains = MergedByDomain(sources);
  const std::string text = Folded(arguments.text);
  Hits hits;
  for (const DomainOutline& domain : domains) Search(domain, text, hits);
  const bool found = !hits.by_name.empty() || !hits.by_documentation.empty();
  if (arguments.json) {
    WriteJson(hits, streams.out);
  } else if (found) {
    Table table({"KIND", "NAME", "TEXT"});
    AddRows(table, hits.by_name, text);
    AddRows(table, hits.by_documentation, text);
    WriteTable(table, arguments, streams);
  }
  if (found) return question.Status(ExitStatus::kOk);
  PrintError(streams.err, fmt::format("nothing is called or described '{}'", arguments.text));
  return question.Status(ExitStatus::kNotFound);
}

}  // namespace Zelk::Tool
