#include "analysis/command_line.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "analysis/place.h"

namespace Zelk::Analysis {
namespace {

// Longer lines do not help people, and they would take long to check.
constexpr std::size_t kMostRequired = 50;
constexpr std::size_t kMostBytes = 1000;

/// Enumerations with more values are taken as unknown.
constexpr std::ptrdiff_t kMostValues = 1000;

CommandWords Split(const std::string& name) {
  CommandWords words(1);
  for (const char character : name) {
    if (character == '.') {
      words.emplace_back();
    } else {
      words.back() += character;
    }
  }
  return words;
}

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsWhole(std::string_view text) {
  if (!text.empty() && text.front() == '-') text.remove_prefix(1);
  return IsDigits(text);
}

bool IsNumber(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point == std::string_view::npos) return IsWhole(text);
  return IsWhole(text.substr(0, point)) && IsDigits(text.substr(point + 1));
}

struct TypeFacts {
  std::string_view type;
  const char* example;
  bool (*accepts)(std::string_view value);
};

bool IsAnything(std::string_view /*value*/) {
  return true;
}

bool IsTruth(std::string_view text) {
  return text == "true" || text == "false";
}

constexpr std::array<TypeFacts, 6> kTypes{{
    {"BOOLEAN", "true", &IsTruth},
    {"LONG", "1", &IsWhole},
    {"DOUBLE", "1.5", &IsNumber},
    {"STRING", "text", &IsAnything},
    {"SECRET", "secret", &IsAnything},
    {"ID", "id", &IsAnything},
}};

/// Null for types whose values are written in a way that is not fixed.
const TypeFacts* FactsOf(std::string_view type) {
  const auto* const found = std::find_if(kTypes.begin(), kTypes.end(),
                                         [&](const TypeFacts& row) { return row.type == type; });
  return found == kTypes.end() ? nullptr : found;
}

/// Stands for a value of such a type.
std::string Placeholder(const std::string& type) {
  return "<" + type + ">";
}

/// What an operation gets: ids are texts.
std::string BoundType(const std::string& type) {
  return type == "ID" ? "STRING" : type;
}

/// Characters that mean nothing to shells.
constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_./:=@%+,";

std::string QuotedWord(const std::string& word) {
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char character : word) {
    quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
  }
  return quoted + "'";
}

ElementId FirstValue(const Model& model, ElementId enumeration) {
  const ElementIds parts = model.Children(enumeration);
  const auto* const found = std::find_if(parts.begin(), parts.end(), [&](ElementId part) {
    return model[part].kind == ElementKind::kValue && IsKept(model[part]);
  });
  return found == parts.end() ? kNoElement : *found;
}

/// The enumeration of that name, if it has values and they are few.
ElementId EnumerationOf(const Workspace& workspace, std::string_view type) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const ElementId found = workspace.GetDefinitions().Definition(ElementKind::kEnumeration, type);
  if (found == kNoElement || model[found].kind != ElementKind::kEnumeration) return kNoElement;
  const ElementIds values = model.Children(found);
  const bool is_small = values.end() - values.begin() <= kMostValues;
  return is_small && FirstValue(model, found) != kNoElement ? found : kNoElement;
}

}  // namespace

CommandForm::CommandForm(const Workspace& workspace, ElementId command)
    : metamodel_(workspace.ModelOf(Domain::kMetamodel)) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  const Document& document = model.DocumentOf(command);
  const NodeId metadata = document.Find(model[command].node, "node_metadata");
  service_ = document.String(document.Find(metadata, "service_id"));
  operation_ = document.String(document.Find(metadata, "operation_id"));
  name_ = Split(model.FullName(command));
  is_known_ = std::none_of(name_.begin(), name_.end(),
                           [](const std::string& word) { return ProblemOfLong(word) != nullptr; });
  std::unordered_set<std::string_view> names;
  for (const ElementId child : model.Children(command)) {
    if (model[child].kind != ElementKind::kOption) continue;
    if (names.insert(model[child].name).second) Add(workspace, child);
  }
}

void CommandForm::Add(const Workspace& workspace, ElementId option) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  const std::string long_name(model[option].name);
  const std::string short_name(TextOf(model, option, "short_option"));
  const std::string_view type = TextOf(model, option, "type");
  options_.push_back({ProblemOfLong(long_name) == nullptr ? "--" + long_name : "",
                      ProblemOfShort(short_name) == nullptr ? "-" + short_name : "",
                      TextOf(model, option, "field_name"), TypeOfOption(type),
                      TakesOf(TextOf(model, option, "generic")), EnumerationOf(workspace, type)});
  const CommandOption& added = options_.back();
  const std::size_t position = options_.size() - 1;
  for (const std::string& word : {added.long_word, added.short_word}) {
    if (!word.empty()) by_word_.emplace(word, position);
  }
  is_known_ = is_known_ && added.takes != nullptr;
  if (added.takes != nullptr && !added.takes->may_be_absent) required_.push_back(position);
}

const CommandOption* CommandForm::Find(const std::string& word) const {
  const auto found = by_word_.find(word);
  return found == by_word_.end() ? nullptr : &options_[found->second];
}

CommandLine CommandForm::Read(const CommandWords& words, const std::string& about) const {
  CommandLine line;
  const auto refuse = [&](const std::string& option, const std::string& word, const char* why) {
    const bool counts = about.empty() || option == about;
    if (counts && line.problem.empty()) line.problem = "'" + Shortened(word) + "' " + why;
  };
  std::unordered_set<const CommandOption*> given;
  for (std::size_t i = 0; i < words.size() && line.problem.empty(); i += 2) {
    const std::string& word = words[i];
    const CommandOption* const option = Find(word);
    line.values.emplace_back();
    if (option == nullptr) {
      refuse(word, word, "is not an option");
      continue;
    }
    if (i + 1 == words.size()) {
      refuse(word, word, "needs a value");
      continue;
    }
    const bool is_first = given.insert(option).second;
    const bool is_list = option->takes != nullptr && option->takes->is_list;
    if (!is_first && !is_list) refuse(word, word, "takes one value");
    const std::string& value = words[i + 1];
    if (!Accepts(*option, value)) {
      refuse(word, value, ("is not of type " + Shortened(option->type)).c_str());
    }
    line.values.back() = {option->field, BoundType(option->type), value,
                          option->enumeration != kNoElement};
  }
  for (const std::size_t position : required_) {
    const CommandOption& option = options_[position];
    if (given.count(&option) == 0) refuse(option.AnyWord(), option.AnyWord(), "is required");
  }
  return line;
}

std::vector<std::string_view> CommandForm::ValuesOf(const CommandOption& option) const {
  std::vector<std::string_view> values;
  if (option.enumeration == kNoElement) return values;
  for (const ElementId id : metamodel_.Children(option.enumeration)) {
    const Element& value = metamodel_[id];
    if (value.kind == ElementKind::kValue && IsKept(value)) values.push_back(value.name);
  }
  return values;
}

std::vector<std::string_view> CommandForm::ValuesOf(const std::string& word) const {
  const CommandOption* const option = Find(word);
  return option == nullptr ? std::vector<std::string_view>() : ValuesOf(*option);
}

bool CommandForm::Accepts(const CommandOption& option, const std::string& value) const {
  if (option.enumeration != kNoElement) {
    const std::vector<std::string_view> values = ValuesOf(option);
    return std::find(values.begin(), values.end(), value) != values.end();
  }
  const TypeFacts* const facts = FactsOf(option.type);
  return facts == nullptr ? value == Placeholder(option.type) : facts->accepts(value);
}

std::string CommandForm::ExampleOf(const CommandOption& option) const {
  if (option.enumeration != kNoElement) {
    return std::string(ValuesOf(option).front());
  }
  const TypeFacts* const facts = FactsOf(option.type);
  return facts == nullptr ? Placeholder(option.type) : facts->example;
}

std::optional<CommandWords> CommandForm::Shortest(const std::string& option, std::size_t times,
                                                  const std::string& value) const {
  if (required_.size() > kMostRequired) return std::nullopt;
  CommandWords words;
  std::size_t size = 0;
  const auto add = [&](const std::string& word, const std::string& added) {
    size += word.size();
    if (size > kMostBytes) return;
    words.push_back(word);
    words.push_back(added);
    size += words.back().size();
  };
  const CommandOption* const first = times == 0 ? nullptr : Find(option);
  if (times > 0 && first == nullptr) return std::nullopt;
  for (std::size_t i = 0; i < times; ++i) {
    add(option, value.empty() ? ExampleOf(*first) : value);
  }
  for (const std::size_t position : required_) {
    const CommandOption& needed = options_[position];
    if (&needed != first) add(needed.AnyWord(), ExampleOf(needed));
  }
  if (size > kMostBytes || !Read(words).problem.empty()) return std::nullopt;
  return words;
}

ElementId FindCommand(const Model& cli, const CommandWords& name) {
  std::string full_name;
  for (const std::string& word : name) full_name += (&word == &name.front() ? "" : ".") + word;
  if (full_name.size() > kMostBytes) return kNoElement;
  const ElementId at_top = cli.Find(ElementKind::kCommand, full_name);
  if (at_top != kNoElement) return at_top;
  for (std::size_t i = 0; i < full_name.size(); ++i) {
    if (full_name[i] != '.') continue;
    const std::string_view name_of(full_name);
    const ElementId found =
        cli.Find(ElementKind::kCommand, name_of.substr(i + 1), name_of.substr(0, i));
    if (found != kNoElement) return found;
  }
  return kNoElement;
}

std::string Quoted(const CommandWords& words) {
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + QuotedWord(word);
  return line;
}

}  // namespace Zelk::Analysis
