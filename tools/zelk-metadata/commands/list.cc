#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <fnmatch.h>
#include <set>

#include "analysis/near.h"
#include "domains/table.h"
#include "host/known_names.h"
#include "host/merged_outline.h"
#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

bool IsPattern(const std::string& word) {
  return word.find_first_of("*?[") != std::string::npos;
}

bool Fits(const std::string& name, const std::string& word) {
  if (IsPattern(word)) return fnmatch(word.c_str(), name.c_str(), 0) == 0;
  return name.compare(0, word.size(), word) == 0;
}

bool Has(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// The kind that a thing with this id is of, of those that the listed kind can be in; empty if no
/// thing has the id.
std::string KindAround(const FoundKind& found, const std::string& id) {
  const FewNames& within = found.kind->within;
  const auto around = std::find_if(within.begin(), within.end(),
                                   [&](const char* kind) { return Has(found.NamesOf(kind), id); });
  return around == within.end() ? "" : *around;
}

/// What is in the thing.
Names NamesIn(const Outline& outline, const Subject& around, const std::string& kind) {
  Names names;
  bool is_inside = false;
  std::size_t depth = 0;
  for (const Entry& entry : outline) {
    if (is_inside && entry.depth <= depth) is_inside = false;
    if (is_inside && entry.subject.kind == kind) names.push_back(Dotted(entry.subject.ids));
    if (is_inside || entry.subject.kind != around.kind || entry.subject.ids != around.ids) continue;
    is_inside = true;
    depth = entry.depth;
  }
  return names;
}

/// Finds what words select.
class Selector {
 public:
  explicit Selector(Invocation& call) : call_(call) {}

  /// Nothing if the word selects nothing. `is_alone` if it is the only word.
  std::optional<Names> Select(const FoundKind& found, const std::string& word, bool is_alone) {
    const auto& list = found.kind->list;
    const bool takes_id = list.ids.max > 0;
    if (takes_id) {
      const Outcome<Names> listed = list.call({word});
      if (listed.answer) return is_alone ? *listed.answer : FullNames(found, word, *listed.answer);
    }
    const std::string around = KindAround(found, word);
    if (around.empty()) return Fitting(AllNames(found), word);
    if (!takes_id || around != *found.kind->within.begin()) {
      return NamesIn(OutlineOf(*found.row), {around, {word}}, found.kind->name);
    }
    call_.Complain(
        fmt::format("the {} '{}' has no {}s directly in it; '{}*' matches those in its {}s", around,
                    word, found.kind->name, word == "." ? "" : word + ".", around));
    return Names();
  }

 private:
  static std::optional<Names> Fitting(Names names, const std::string& word) {
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&word](const std::string& name) { return !Fits(name, word); }),
                names.end());
    return names.empty() ? std::nullopt : std::make_optional(std::move(names));
  }

  /// What each source holds is read when it is first needed.
  Outline OutlineOf(const DomainRow& row) {
    if (domains_.empty()) domains_ = MergedByDomain(call_.Outlines());
    for (const DomainOutline& domain : domains_) {
      if (domain.row == &row) return domain.outline;
    }
    return {};  // coverage: the file was removed after it was loaded
  }

  Invocation& call_;
  std::vector<DomainOutline> domains_;
};

/// Fails with the names that may be meant.
ExitStatus FailAsUnknown(const Invocation& call, const std::string& word) {
  const FoundKind& first = call.Kinds().front();
  Names known;
  const auto add = [&known](const Names& names) {
    known.insert(known.end(), names.begin(), names.end());
  };
  for (const FoundKind& found : call.Kinds()) {
    add(AllNames(found));
    for (const char* kind : found.kind->within) add(found.NamesOf(kind));
  }
  const FewNames& within = first.kind->within;
  const std::string what = IsPattern(word)
                               ? fmt::format("no {} matches '{}'", first.kind->name, word)
                               : fmt::format("no {} begins with '{}'", first.kind->name, word);
  const std::string around =
      within.Empty() ? "" : fmt::format(", and no {} has that id", fmt::join(within, " or "));
  return call.Fail(ExitStatus::kNotFound, what + around + Analysis::Suggestion(word, known));
}

/// What the words select, each name once in a domain.
ExitStatus Select(Invocation& call, const Names& words, Answers<Names>& answers) {
  Selector selector(call);
  for (const FoundKind& found : call.Kinds()) answers.push_back({found.row, found.kind, {}, {}});
  std::vector<std::set<std::string>> seen(answers.size());
  ExitStatus status = ExitStatus::kOk;
  for (const std::string& word : words) {
    bool is_known = false;
    for (std::size_t i = 0; i < answers.size(); ++i) {
      const auto names = selector.Select(call.Kinds()[i], word, words.size() == 1);
      is_known = is_known || names;
      for (const std::string& name : names.value_or(Names())) {
        if (seen[i].insert(name).second) answers[i].value.push_back(name);
      }
    }
    if (!is_known) status = FailAsUnknown(call, word);
  }
  return status;
}

std::size_t CountWithNames(const Answers<Names>& answers) {
  return static_cast<std::size_t>(
      std::count_if(answers.begin(), answers.end(),
                    [](const Answer<Names>& answer) { return !answer.value.empty(); }));
}

/// A column with domains is shown only to people, and if several have something.
Render::Table MakeTable(const Answers<Names>& answers, bool is_for_people) {
  const bool with_domains = is_for_people && CountWithNames(answers) > 1;
  Render::Table table(with_domains ? Names{"DOMAIN", "NAME"} : Names{"NAME"});
  for (const auto& answer : answers) {
    for (const std::string& name : answer.value) {
      table.Add(with_domains ? Names{answer.row->name, name} : Names{name});
    }
  }
  return table;
}

/// An object for each name.
void WriteJson(Render::JsonWriter& json, const Answer<Names>& answer) {
  for (const std::string& name : answer.value) {
    json.StartObject();
    json.Member("domain", answer.row->name);
    json.Member("kind", answer.kind->name);
    json.Member("name", name);
    json.EndObject();
  }
}

/// The names, one a line. Those of several domains follow each other.
ExitStatus RunList(Invocation& call) {
  const Names& words = call.Args().ids;
  const std::string& kind = call.Args().kind;
  const std::vector<FoundKind> called = call.KindsCalled(kind);
  ExitStatus status = call.Prepare(kind, words.empty() || called.empty() ? 0 : called[0].ids.min);
  if (status != ExitStatus::kOk) return status;
  call.NoteIfEmpty();
  Answers<Names> answers;
  status = words.empty() ? call.Ask(&Kind::list, {}, answers) : Select(call, words, answers);
  if (call.WantsJson()) {
    call.ShowJsonArray("names", answers, WriteJson);
  } else if (status == ExitStatus::kOk || CountWithNames(answers) > 0) {
    call.Show(MakeTable(answers, call.IsForPeople()));
  }
  return status;
}

/// What must be there; anything else selects among the names.
std::optional<IdCount> IdsOfList(const Kind& kind) {
  if (!kind.list.call) return std::nullopt;
  return IdCount{kind.list.ids.min, kind.list.ids.min};
}

/// The kinds with what each can be in.
std::string KindsInText() {
  const Host host(Domains());
  std::string text = "Kinds, which may also be written in the plural:\n";
  for (const std::string& name : KindNames(IdsOfList)) {
    const FewNames& within = host.FindKinds(name, IdsOfList).front().kind->within;
    text += within.Empty() ? fmt::format("  {}\n", name)
                           : fmt::format("  {}, in a {}\n", name, fmt::join(within, ", "));
  }
  return text;
}

}  // namespace

Command ListCommand() {
  Command command;
  command.name = "list";
  command.summary = "List the names of a kind, or those that words select";
  command.ids_of = IdsOfList;
  command.details =
      "A WORD that is the id of something that the kind can be in lists what is in it; if several "
      "things have the id, in the innermost one. Any other WORD lists the names that begin with "
      "it, or that match it if it has *, ? or [...], where * matches full stops, too.\n\n"
      "A namespace lists the commands directly in it. The operations of one service are listed by "
      "their own names, otherwise operations are SERVICE.OPERATION and need a WORD.\n\n"
      "A kind of several domains is listed for all of them, one after the other; write "
      "DOMAIN:KIND for one of them. --output plain prints only the names.\n\n"
      "The list of the kind hidden is always empty.\n\n" +
      KindsInText();
  command.operands = {KindOperand(),
                      {"WORD", Word::kName, false, "An id, the beginning of a name, or a pattern",
                       &Arguments::ids}};
  command.outputs = TableOutputs();
  command.example =
      "list operations com.orvane.zelk.metadata.metamodel.component --source metadata";
  command.run = RunList;
  return command;
}

}  // namespace Zelk::Tool
