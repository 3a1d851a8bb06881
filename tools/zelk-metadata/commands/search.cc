#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <re2/re2.h>
#include <set>

#include "analysis/near.h"
#include "domains/table.h"
#include "host/known_names.h"
#include "host/merged_outline.h"
#include "language/invocation.h"
#include "language/operands.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

/// What is looked for. Its work grows with the length of the text, whatever the user wrote.
class Wanted {
 public:
  Wanted(const std::string& text, bool is_regex)
      // Only a text with a dot is looked for in whole names, since otherwise everything inside a
      // hit would be a hit.
      : in_whole_names_(text.find(is_regex ? "\\." : ".") != std::string::npos),
        expression_(text, Options(is_regex)) {}

  /// Empty if the expression is well-formed.
  const std::string& Error() const { return expression_.error(); }

  bool IsIn(const std::string& text) const { return re2::RE2::PartialMatch(text, expression_); }

  bool IsInNameOf(const Entry& entry) const {
    return IsIn(entry.Name()) || (in_whole_names_ && IsIn(Dotted(entry.subject.ids)));
  }

 private:
  static re2::RE2::Options Options(bool is_regex) {
    re2::RE2::Options options;
    options.set_literal(!is_regex);
    options.set_case_sensitive(false);
    options.set_log_errors(false);
    return options;
  }

  bool in_whole_names_;
  re2::RE2 expression_;
};

struct Hit {
  const DomainRow* row;
  const Entry* entry;
};

struct Hits {
  std::vector<Hit> by_name;
  std::vector<Hit> by_documentation;
};

void Search(const DomainOutline& domain, const std::set<std::string>& kinds, const Wanted& wanted,
            Hits& hits) {
  for (const Entry& entry : domain.outline) {
    if (kinds.count(entry.subject.kind) == 0) continue;
    if (wanted.IsInNameOf(entry)) {
      hits.by_name.push_back({domain.row, &entry});
    } else if (wanted.IsIn(entry.documentation)) {
      hits.by_documentation.push_back({domain.row, &entry});
    }
  }
}

/// The first line that holds the text, or else the first line.
std::string Excerpt(const std::string& documentation, const Wanted& wanted) {
  for (std::size_t begin = 0, end = 0; begin < documentation.size(); begin = end + 1) {
    end = std::min(documentation.find('\n', begin), documentation.size());
    std::string line = documentation.substr(begin, end - begin);
    if (wanted.IsIn(line)) return line;
  }
  return Render::FirstLine(documentation);
}

void AddRows(Render::Table& table, const std::vector<Hit>& hits, const Wanted& wanted) {
  for (const Hit& hit : hits) {
    table.Add({fmt::format("{}:{}", hit.row->name, hit.entry->subject.kind),
               fmt::format("{}", fmt::join(hit.entry->subject.ids, " ")),
               Excerpt(hit.entry->documentation, wanted)});
  }
}

void WriteHits(Render::JsonWriter& json, const std::vector<Hit>& hits, const char* matched) {
  for (const Hit& hit : hits) {
    json.StartObject();
    json.Member("domain", hit.row->name);
    json.Member("kind", hit.entry->subject.kind);
    json.Key("ids").StringArray(hit.entry->subject.ids);
    json.Member("matched", std::string(matched));
    json.Member("documentation", hit.entry->documentation);
    json.EndObject();
  }
}

void Show(const Invocation& call, const Hits& hits, std::size_t total, const Wanted& wanted) {
  if (call.WantsJson()) {
    call.ShowJson([&](Render::JsonWriter& json) {
      json.Key("matches").StartArray();
      WriteHits(json, hits.by_name, "name");
      WriteHits(json, hits.by_documentation, "documentation");
      json.EndArray();
      json.Key("total").Number(total);
    });
    return;
  }
  Render::Table table({"KIND", "NAME", "TEXT"});
  AddRows(table, hits.by_name, wanted);
  AddRows(table, hits.by_documentation, wanted);
  call.Show(table);
}

/// The kinds that --kind names, or all of them. Prints what is wrong with a word that names none.
std::optional<std::vector<OutlineKind>> KindsWanted(Invocation& call) {
  const std::vector<OutlineKind> all = OutlineKinds(call.GetHost());
  if (call.Args().kinds.empty()) return all;
  std::vector<OutlineKind> kinds;
  for (const std::string& word : call.Args().kinds) {
    const auto is_meant = [&word](const OutlineKind& kind) {
      return IsKindCalled(word, kind.row->name, kind.name);
    };
    if (std::none_of(all.begin(), all.end(), is_meant)) {
      const Names known = OutlineKindNames(call.GetHost());
      call.Complain(fmt::format("unknown kind '{}'; the kinds are {}{}", word,
                                fmt::join(known, ", "), Analysis::Suggestion(word, known)));
      return std::nullopt;
    }
    std::copy_if(all.begin(), all.end(), std::back_inserter(kinds), is_meant);
  }
  return kinds;
}

/// The hits among things of these kinds, those in names first.
Hits Find(const std::vector<DomainOutline>& domains, const std::vector<OutlineKind>& kinds,
          const Wanted& wanted) {
  Hits hits;
  for (const DomainOutline& domain : domains) {
    std::set<std::string> names;
    for (const OutlineKind& kind : kinds) {
      if (kind.row == domain.row) names.insert(kind.name);
    }
    Search(domain, names, wanted, hits);
  }
  return hits;
}

/// Leaves the first hits. Returns how many there were.
std::size_t Cut(Hits& hits, std::size_t limit) {
  const std::size_t total = hits.by_name.size() + hits.by_documentation.size();
  hits.by_name.resize(std::min(hits.by_name.size(), limit));
  hits.by_documentation.resize(std::min(hits.by_documentation.size(), limit - hits.by_name.size()));
  return total;
}

ExitStatus RunSearch(Invocation& call) {
  const std::string& text = call.Args().text;
  if (text.empty()) return call.Fail(ExitStatus::kUsage, "the text to search for is empty");
  const Wanted wanted(text, call.Args().is_regex);
  if (!wanted.Error().empty()) {
    return call.Fail(ExitStatus::kUsage,
                     fmt::format("'{}' is not a regular expression: {}", text, wanted.Error()));
  }
  const auto kinds = KindsWanted(call);
  if (!kinds) return ExitStatus::kNotFound;
  call.Load();
  const std::vector<DomainOutline> domains = MergedByDomain(call.Outlines());
  Hits hits = Find(domains, *kinds, wanted);
  const std::size_t limit = call.Args().limit;
  const std::size_t total = Cut(hits, limit);
  if (total > 0 || call.WantsJson()) Show(call, hits, total, wanted);
  if (total == 0) {
    return call.Fail(ExitStatus::kNotFound,
                     fmt::format("no name or documentation contains '{}'", text));
  }
  if (total > limit) call.Complain(fmt::format("only {} of {} hits are shown", limit, total));
  return ExitStatus::kOk;
}

}  // namespace

Command SearchCommand() {
  Command command;
  command.name = "search";
  command.summary = "Find names and documentation that contain a text";
  command.details = fmt::format(
      "Upper and lower case are the same. Names come first. A TEXT with a dot, or a regular "
      "expression with \\., is searched in full names, any other only in their last part. Regular "
      "expressions are as in Perl, but without what needs backtracking.\n\nKinds: {}.\n",
      fmt::join(OutlineKindNames(Host(Domains())), ", "));
  command.operands = {
      {"TEXT", Word::kText, true, "Part of a name or of documentation", &Arguments::text}};
  command.options = {
      {"kind", "KIND", Word::kOutlineKind,
       "Search only this kind, alone or as DOMAIN:KIND; may be given several times",
       &Arguments::kinds},
      {"limit", "N", Word::kNumber, "Show only the first N hits", &Arguments::limit},
      {"regex", "", Word::kNone, "TEXT is a regular expression", &Arguments::is_regex}};
  command.outputs = TableOutputs();
  command.example = "search md5 --source metadata";
  command.use = HostUse::kOutlines;
  command.run = RunSearch;
  return command;
}

}  // namespace Zelk::Tool
