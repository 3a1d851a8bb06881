#include "complete/completion.h"

#include <algorithm>
#include <set>

#include "analysis/diff/kind.h"
#include "analysis/lint/rule.h"
#include "explain/explanations.h"
#include "host/known_names.h"

namespace Zelk::Tool::Complete {
namespace {

using Choices = std::vector<Choice>;

bool StartsWith(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

bool IsOption(const std::string& word) {
  return word.size() > 1 && word.front() == '-';
}

/// What is read from the words before the last one.
struct Line {
  const Command* command = nullptr;
  std::vector<std::string> operands;

  /// What the options say about sources.
  Arguments arguments;

  /// The option whose value comes next.
  const OptionDescription* awaiting = nullptr;

  /// After an unknown command, or after "--" without a command.
  bool is_lost = false;

  /// After "--", where nothing is an option.
  bool only_operands = false;
};

/// An option's name and the value that is in the same word.
struct OptionWord {
  std::string name;
  bool has_value;
  std::string value;
};

OptionWord ReadOption(const std::string& word) {
  const std::size_t equals = word.find('=');
  const bool has_value = equals != std::string::npos;
  return {word.substr(2, has_value ? equals - 2 : std::string::npos), has_value,
          has_value ? word.substr(equals + 1) : ""};
}

/// Null for an unknown option.
const OptionDescription* FindOption(const Language& language, const Line& line,
                                    const std::string& name) {
  const auto is_called = [&name](const OptionDescription& option) { return option.name == name; };
  const auto& shared = language.options;
  const auto found = std::find_if(shared.begin(), shared.end(), is_called);
  if (found != shared.end()) return &*found;
  if (line.command == nullptr) return nullptr;
  const auto& own = line.command->options;
  const auto found_own = std::find_if(own.begin(), own.end(), is_called);
  return found_own == own.end() ? nullptr : &*found_own;
}

void TakeValue(Line& line, const OptionDescription& option, const std::string& value) {
  if (option.word == Word::kSource) line.arguments.sources.push_back(value);
}

void TakeOption(Line& line, const Language& language, const std::string& word) {
  if (!StartsWith(word, "--")) return;
  const OptionWord read = ReadOption(word);
  const OptionDescription* const option = FindOption(language, line, read.name);
  if (option == nullptr) return;
  if (const auto* flag = std::get_if<bool Arguments::*>(&option->target)) {
    line.arguments.** flag = true;
  } else if (read.has_value) {
    TakeValue(line, *option, read.value);
  } else {
    line.awaiting = option;
  }
}

void Take(Line& line, const Language& language, const std::string& word) {
  if (line.awaiting != nullptr) {
    TakeValue(line, *line.awaiting, word);
    line.awaiting = nullptr;
  } else if (!line.only_operands && word == "--") {
    line.only_operands = true;
    line.is_lost = line.command == nullptr;
  } else if (!line.only_operands && IsOption(word)) {
    TakeOption(line, language, word);
  } else if (line.command == nullptr) {
    line.command = language.Find(word);
    line.is_lost = line.is_lost || line.command == nullptr;
  } else {
    line.operands.push_back(word);
  }
}

Choices Commands(const Language& language) {
  Choices choices;
  for (const Command& command : language.commands) {
    choices.push_back({command.name, command.summary});
  }
  return choices;
}

Choices Options(const Language& language, const Line& line) {
  Choices choices;
  const auto add = [&](const std::vector<OptionDescription>& options) {
    for (const auto& option : options) {
      const bool is_taken = line.command == nullptr || line.command->Takes(option);
      if (is_taken) choices.push_back({"--" + option.name, option.summary});
    }
  };
  if (line.command != nullptr) add(line.command->options);
  add(language.options);
  choices.push_back({"--help", "Print the help"});
  if (line.command == nullptr && !language.program.empty()) {
    choices.push_back({"--version", "Print the version"});
  }
  return choices;
}

Choices Plain(const Names& words) {
  Choices choices;
  for (const std::string& word : words) choices.push_back({word, ""});
  return choices;
}

/// The outputs of the command or, without one, of any.
Choices Outputs(const Language& language, const Line& line) {
  if (line.command != nullptr) return Plain(line.command->outputs);
  Names all;
  for (const Command& command : language.commands) {
    for (const std::string& output : command.outputs) {
      if (std::find(all.begin(), all.end(), output) == all.end()) all.push_back(output);
    }
  }
  return Plain(all);
}

/// What is known of a place on the command line, to find the words for it.
struct Place {
  const Line& line;
  const std::string& typed;
  const Language& language;
  const HostOf& host_of;

  const Host& LoadedHost() const { return host_of(line.arguments); }
};

/// For what every host knows.
Arguments NoSources() {
  Arguments arguments;
  arguments.no_default_sources = true;
  return arguments;
}

Choices Kinds(const Place& place) {
  const auto ids_of = place.line.command->ids_of;
  const Host& host = place.host_of(NoSources());
  const bool with_domain = place.typed.find(':') != std::string::npos;
  Choices choices;
  for (const std::string& name : host.KindNames()) {
    for (const FoundKind& found : host.FindKinds(name, ids_of)) {
      const std::string word = with_domain ? found.row->name + ":" + name : name;
      if (!choices.empty() && choices.back().word == word) continue;
      const std::string needs = found.IdsText();
      choices.push_back({word, needs.empty() ? "" : "with" + needs});
    }
  }
  return choices;
}

/// How many ids of the next thing are given, if several may follow each other.
std::size_t GivenOfNext(const std::vector<FoundKind>& kinds, const Ids& given) {
  std::set<std::string> first;
  for (const FoundKind& found : kinds) {
    const Names names = found.kind->MayJoin() ? found.NamesAt(0, {}) : Names{};
    first.insert(names.begin(), names.end());
  }
  // A word that is not the first of several ids is all of them.
  bool awaits_second = false;
  for (const std::string& word : given) awaits_second = !awaits_second && first.count(word) > 0;
  return awaits_second ? 1 : 0;
}

Choices IdChoices(const Place& place) {
  const Command& command = *place.line.command;
  // The kind comes before its ids.
  const Ids given(place.line.operands.begin() + 1, place.line.operands.end());
  const auto kinds = place.LoadedHost().FindKinds(place.line.operands.front(), command.ids_of);
  const std::size_t index = command.takes_several ? GivenOfNext(kinds, given) : given.size();
  const Ids before(given.end() - static_cast<std::ptrdiff_t>(index), given.end());
  std::set<std::string> seen;
  Choices choices;
  for (const FoundKind& found : kinds) {
    if (!found.has_sources || index >= std::min(found.ids.max, found.IdKinds().size())) continue;
    for (const std::string& name : found.NamesAt(index, before)) {
      if (seen.insert(name).second) choices.push_back({name, ""});
    }
  }
  return choices;
}

Choices OutlineKindWords(const Place& place) {
  const Host& host = place.host_of({});
  const bool with_domain = place.typed.find(':') != std::string::npos;
  if (!with_domain) return Plain(OutlineKindNames(host));
  Choices choices;
  for (const OutlineKind& kind : OutlineKinds(host)) {
    choices.push_back({kind.row->name + ":" + kind.name, ""});
  }
  return choices;
}

Choices NameWords(const Place& place) {
  const Command& command = *place.line.command;
  std::set<std::string> names;
  for (const FoundKind& found :
       place.LoadedHost().FindKinds(place.line.operands.front(), command.ids_of)) {
    for (const char* kind : found.kind->within) {
      for (const std::string& name : found.NamesOf(kind)) names.insert(name);
    }
    for (const std::string& name : AllNames(found)) names.insert(name);
  }
  return Plain({names.begin(), names.end()});
}

Choices TreeIds(const Place& place) {
  const Host& host = place.LoadedHost();
  std::set<std::string> ids;
  for (const std::string& name : host.KindNames()) {
    for (const FoundKind& found : host.FindKinds(name)) {
      if (!found.kind->in_tree) continue;
      for (const std::string& id : AllNames(found)) ids.insert(id);
    }
  }
  return Plain({ids.begin(), ids.end()});
}

/// One part of a name at a time, so that few are offered; whole names once the user has typed a
/// dot.
Choices UsageNames(const Place& place) {
  std::string around;
  for (const std::string& word : place.line.operands) around += word + '.';
  const bool whole = place.typed.find('.') != std::string::npos;
  std::set<std::string> words;
  for (const std::string& name : place.LoadedHost().UsageNames()) {
    if (name.empty() || name == "." || !StartsWith(name, around)) continue;
    const std::string rest = name.substr(around.size());
    words.insert(whole ? rest : rest.substr(0, rest.find('.')));
  }
  return Plain({words.begin(), words.end()});
}

/// Of messages, of rules and of changes.
Choices MessageIds() {
  Choices choices;
  for (const Explain::Explanation& explanation : Explain::Explanations()) {
    choices.push_back({explanation.id, explanation.text});
  }
  for (const auto* rule : Analysis::Lint::Rules()) choices.push_back({rule->id, rule->title});
  for (const auto* kind : Analysis::Diff::Kinds()) choices.push_back({kind->id, kind->title});
  return choices;
}

Choices SourceIds(const Place& place) {
  const bool with_domain = place.typed.find(':') != std::string::npos;
  return Plain(place.LoadedHost().SourceIds(with_domain));
}

Completion ForWord(Word word, const Place& place) {
  switch (word) {
    case Word::kPath:
      return {Completion::Of::kPath, {}};
    case Word::kSource:
      return {Completion::Of::kSource, {}};
    case Word::kKind:
      return {Completion::Of::kWords, Kinds(place)};
    case Word::kOutlineKind:
      return {Completion::Of::kWords, OutlineKindWords(place)};
    case Word::kName:
      return {Completion::Of::kWords, NameWords(place)};
    case Word::kTreeId:
      return {Completion::Of::kWords, TreeIds(place)};
    case Word::kId:
      return {Completion::Of::kWords, IdChoices(place)};
    case Word::kUsageName:
      return {Completion::Of::kWords, UsageNames(place)};
    case Word::kMessageId:
      return {Completion::Of::kWords, MessageIds()};
    case Word::kSourceId:
      return {Completion::Of::kWords, SourceIds(place)};
    case Word::kCommand:
      return {Completion::Of::kWords, Commands(place.language)};
    case Word::kNone:
    case Word::kText:
    case Word::kNumber:
    case Word::kChoice:
      break;
  }
  return {};
}

Completion ForOperand(const Place& place) {
  const auto& operands = place.line.command->operands;
  if (operands.empty()) return {};
  const std::size_t given = place.line.operands.size();
  const OperandDescription& last = operands.back();
  if (given >= operands.size() && !last.TakesAll()) return {};
  const OperandDescription& operand = given < operands.size() ? operands[given] : last;
  if (operand.word == Word::kChoice) return {Completion::Of::kWords, Plain(operand.choices)};
  return ForWord(operand.word, place);
}

/// Without those that would be read as options.
Completion ForOperandAmongOptions(const Place& place) {
  Completion completion = ForOperand(place);
  Choices& choices = completion.choices;
  choices.erase(std::remove_if(choices.begin(), choices.end(),
                               [](const Choice& choice) { return IsOption(choice.word); }),
                choices.end());
  return completion;
}

Completion ForValue(const OptionDescription& option, const Place& place) {
  if (option.word != Word::kChoice) return ForWord(option.word, place);
  if (!option.choices.empty()) return {Completion::Of::kWords, Plain(option.choices)};
  return {Completion::Of::kWords, Outputs(place.language, place.line)};
}

/// For "--name=value": each choice is the whole word again.
Completion ForOptionWord(const Place& place) {
  const OptionWord read = ReadOption(place.typed);
  const OptionDescription* const option = FindOption(place.language, place.line, read.name);
  if (!read.has_value || option == nullptr) {
    return {Completion::Of::kWords, Options(place.language, place.line)};
  }
  Completion completion = ForValue(*option, place);
  for (Choice& choice : completion.choices) choice.word = "--" + read.name + "=" + choice.word;
  return completion;
}

Completion AllThatFit(const Place& place) {
  if (place.line.is_lost) return {};
  const bool is_option = !place.line.only_operands && StartsWith(place.typed, "-");
  if (place.line.awaiting != nullptr) return ForValue(*place.line.awaiting, place);
  if (is_option && StartsWith(place.typed, "--")) return ForOptionWord(place);
  if (is_option) return {Completion::Of::kWords, Options(place.language, place.line)};
  if (place.line.command == nullptr) return {Completion::Of::kWords, Commands(place.language)};
  return place.line.only_operands ? ForOperand(place) : ForOperandAmongOptions(place);
}

}  // namespace

Completion CompleteWord(const std::vector<std::string>& words, const Language& language,
                        const HostOf& host_of) {
  if (words.empty()) return {Completion::Of::kWords, Commands(language)};
  Line line;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) Take(line, language, words[i]);
  const std::string& typed = words.back();
  Completion completion = AllThatFit({line, typed, language, host_of});
  Choices& choices = completion.choices;
  choices.erase(
      std::remove_if(choices.begin(), choices.end(),
                     [&typed](const Choice& choice) { return !StartsWith(choice.word, typed); }),
      choices.end());
  return completion;
}

}  // namespace Zelk::Tool::Complete
