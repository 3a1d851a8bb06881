#include "analysis/diff/command_reach.h"

#include <algorithm>
#include <tuple>

#include "analysis/call.h"
#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/mixed.h"
#include "analysis/options.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

bool IsAnswered(const Element& element) {
  return element.fate == Fate::kFound;
}

/// Whether all command lines have the option. A generic that is not known may require it.
bool IsAlwaysGiven(const Model& cli, ElementId option) {
  const Takes* const takes = TakesOf(TextOf(cli, option, "generic"));
  return takes == nullptr || !takes->may_be_absent;
}

auto KeyOf(const FieldFill& fill) {
  return std::tie(fill.structure, fill.field, fill.instance);
}

/// Those of the commands that are answered, by structures.
std::vector<FieldFill> FillsOf(const Workspace& version) {
  const Model& cli = version.ModelOf(Domain::kCli);
  const Model& metamodel = version.ModelOf(Domain::kMetamodel);
  std::vector<FieldFill> fills;
  ElementId option = kNoElement;
  FieldFill fill{};
  for (const Reference& reference : version.GetReferences().All()) {
    if (reference.kind != ReferenceKind::kField) continue;
    if (reference.from.element != option) {
      option = reference.from.element;
      fill.command = cli[option].owner;
      fill.is_always = IsAlwaysGiven(cli, option);
      const Element& command = cli[fill.command];
      fill.instance = Mixed(Mixed(0, command.path), command.name);
    }
    fill.field = reference.target.element;
    if (fill.field == kNoElement || !IsAnswered(cli[fill.command])) continue;
    if (metamodel[fill.field].kind == ElementKind::kField) {
      fill.structure = metamodel[fill.field].owner;
      fills.push_back(fill);
    }
    fill.instance = Mixed(fill.instance, reference.name);
  }
  std::sort(fills.begin(), fills.end(), [](const FieldFill& left, const FieldFill& right) {
    return std::tuple(KeyOf(left), !left.is_always) < std::tuple(KeyOf(right), !right.is_always);
  });
  return fills;
}

/// Calls `look` with those of the structure.
template <typename Look>
void ForEachFill(const std::vector<FieldFill>& fills, ElementId structure, const Look& look) {
  const auto is_before = [](const FieldFill& fill, ElementId wanted) {
    return fill.structure < wanted;
  };
  auto fill = std::lower_bound(fills.begin(), fills.end(), structure, is_before);
  for (; fill != fills.end() && fill->structure == structure; ++fill) look(*fill);
}

/// Whether the option, as it is, can fill what it names. True if that is not known.
bool CanFill(const Workspace& version, ElementId option) {
  const Model& cli = version.ModelOf(Domain::kCli);
  ElementId operation = kNoElement;
  for (const Reference& each : version.GetReferences().From({Domain::kCli, cli[option].owner})) {
    if (each.kind == ReferenceKind::kOperation) operation = each.target.element;
  }
  const FieldPath path =
      version.GetDefinitions().Follow(operation, TextOf(cli, option, "field_name"));
  if (path.end != FieldPath::kComplete) return path.end == FieldPath::kUnknown;
  const ElementId part = path.found.back();
  const std::string type = OptionTypeOf(version, part);
  if (type.empty() || !IsOptionType(std::string(TextOf(cli, option, "type")), type)) return false;
  const Takes* const takes = TakesOf(TextOf(cli, option, "generic"));
  if (takes == nullptr) return true;
  const Takes& needed = TakesOf(version.GetDefinitions().ContentOf(part).shape.arity);
  return takes->is_list == needed.is_list &&
         (!takes->may_have_absent_elements || needed.may_have_absent_elements);
}

}  // namespace

std::string CommandReach::Text(const Commands& commands) const {
  const std::set<ElementId>& ids = commands.Ids();
  if (ids.empty()) return "";
  const auto name = [&](ElementId id) {
    return "'" + Shortened(models_.old_model.FullName(id)) + "'";
  };
  const std::string first = name(*ids.begin());
  if (ids.size() == 1) return "the command " + first;
  const std::string second = name(*std::next(ids.begin()));
  if (!commands.IsFull()) return "the commands " + first + " and " + second;
  return "the commands " + first + ", " + second + " and others";
}

ElementId CommandReach::CommandOf(ElementId old_id) const {
  while (models_.old_model[old_id].kind != ElementKind::kCommand) {
    old_id = models_.old_model[old_id].owner;
  }
  return old_id;
}

void CommandReach::ReadParts(ElementId command) {
  if (!read_.insert(command).second) return;
  const Element& element = models_.old_model[command];
  const ElementId now = models_.new_model.Find(element.kind, element.name, element.path);
  const bool is_kept = now != kNoElement && IsAnswered(element);
  if (!is_kept || CallOf(models_.old_model, command) != CallOf(models_.new_model, now)) return;
  const auto add = [&](Pair owners, ElementKind kind) {
    std::vector<Pair> pairs = PartPairs(models_, owners, kind);
    for (const Pair& pair : pairs) parts_.emplace(pair.old_id, pair.new_id);
    return pairs;
  };
  parts_.emplace(command, now);
  add({command, now}, ElementKind::kOption);
  for (const Pair& output : add({command, now}, ElementKind::kOutput)) {
    if (output.IsMatched()) add(output, ElementKind::kOutputField);
  }
}

ElementId CommandReach::NewOf(ElementId old_id) {
  ReadParts(CommandOf(old_id));
  const auto found = parts_.find(old_id);
  return found == parts_.end() ? kNoElement : found->second;
}

bool CommandReach::IsStillNamed(const Reference& reference) {
  if (reference.from.domain != Domain::kCli) return false;
  const ElementId id = reference.from.element;
  const ElementId now = NewOf(id);
  if (now == kNoElement) return false;
  if (models_.old_model[id].kind != ElementKind::kOption) return true;
  const char* const key = reference.kind == ReferenceKind::kType ? "type" : "field_name";
  return TextOf(models_.old_model, id, key) == TextOf(models_.new_model, now, key);
}

const std::vector<ElementId>& CommandReach::StillNaming(ElementId old_id) {
  if (named_ == old_id) return naming_;
  named_ = old_id;
  naming_.clear();
  ElementId last = kNoElement;
  for (const Reference* reference : old_.GetReferences().To({Domain::kMetamodel, old_id})) {
    // A path may lead through the element several times.
    if (reference->from.element == last) continue;
    if (IsStillNamed(*reference)) naming_.push_back(last = reference->from.element);
  }
  return naming_;
}

CommandReach::Commands CommandReach::Naming(ElementId old_id) {
  Commands commands;
  for (const ElementId id : StillNaming(old_id)) {
    if (commands.IsFull()) break;
    commands.Add(CommandOf(id));
  }
  return commands;
}

CommandReach::Commands CommandReach::UsingGone(Pair pair) {
  Commands commands;
  if (models_.old_model.Size() == 0) return commands;
  std::vector<ElementId> gone = PartsWith(metamodels_, pair);
  gone.push_back(pair.old_id);
  for (const ElementId id : gone) {
    if (commands.IsFull()) break;
    commands.Add(Naming(id));
  }
  return commands;
}

CommandReach::Commands CommandReach::Showing(ElementId old_result, ElementId new_result) {
  Commands commands;
  const ElementId before = old_.GetDefinitions().ContentOf(old_result).definition;
  const ElementId after = new_.GetDefinitions().ContentOf(new_result).definition;
  if (before == kNoElement) return commands;
  const Model& metamodel = metamodels_.old_model;
  const std::string_view name = metamodel[before].name;
  if (after != kNoElement && metamodels_.new_model[after].name == name) return commands;
  for (const ElementId command : StillNaming(metamodel[old_result].owner)) {
    for (const ElementId id : models_.old_model.Children(command)) {
      const Element& part = models_.old_model[id];
      const bool is_shown = part.kind == ElementKind::kOutput && part.name == name;
      if (is_shown && NewOf(id) != kNoElement) commands.Add(command);
    }
  }
  return commands;
}

bool CommandReach::IsMisfit(ElementId option) {
  const auto [known, is_new] = misfits_.try_emplace(option, false);
  if (is_new) known->second = CanFill(old_, option) && !CanFill(new_, NewOf(option));
  return known->second;
}

CommandReach::Commands CommandReach::Misfitting(ElementId old_part) {
  Commands commands;
  for (const ElementId id : StillNaming(old_part)) {
    if (commands.IsFull()) break;
    const bool is_option = models_.old_model[id].kind == ElementKind::kOption;
    if (is_option && IsMisfit(id)) commands.Add(CommandOf(id));
  }
  return commands;
}

CommandReach::Commands CommandReach::Lacking(Pair owner, ElementId new_part) {
  const bool is_field = metamodels_.new_model[new_part].kind == ElementKind::kField;
  return is_field ? WithoutField(owner, new_part) : WithoutParameter(owner.old_id, new_part);
}

CommandReach::Commands CommandReach::WithoutParameter(ElementId operation, ElementId parameter) {
  const Model& cli = models_.new_model;
  std::unordered_set<ElementId> with;
  for (const Reference* reference : new_.GetReferences().To({Domain::kMetamodel, parameter})) {
    const ElementId option = reference->from.element;
    if (IsAlwaysGiven(cli, option)) with.insert(cli[option].owner);
  }
  Commands commands;
  for (const ElementId command : StillNaming(operation)) {
    if (commands.IsFull()) break;
    if (with.count(NewOf(command)) == 0) commands.Add(command);
  }
  return commands;
}

void CommandReach::ReadBuilders(Pair structure) {
  if (!has_fills_) {
    has_fills_ = true;
    old_fills_ = FillsOf(old_);
    new_fills_ = FillsOf(new_);
  }
  if (built_ == structure.old_id) return;
  built_ = structure.old_id;
  std::unordered_set<std::uint64_t> still;
  ForEachFill(new_fills_, structure.new_id,
              [&](const FieldFill& fill) { still.insert(fill.instance); });
  builders_.clear();
  ForEachFill(old_fills_, structure.old_id, [&](const FieldFill& fill) {
    if (still.count(fill.instance) != 0 && NewOf(fill.command) != kNoElement) {
      builders_.insert({fill.command, fill.instance});
    }
  });
}

CommandReach::Commands CommandReach::WithoutField(Pair structure, ElementId field) {
  ReadBuilders(structure);
  const auto is_filled = [&](std::uint64_t instance) {
    const auto wanted = std::tie(structure.new_id, field, instance);
    // Those of the best option come first.
    const auto fill =
        std::lower_bound(new_fills_.begin(), new_fills_.end(), wanted,
                         [](const FieldFill& each, const auto& key) { return KeyOf(each) < key; });
    return fill != new_fills_.end() && KeyOf(*fill) == wanted && fill->is_always;
  };
  Commands commands;
  for (const auto& [command, instance] : builders_) {
    if (commands.IsFull()) break;
    if (!is_filled(instance)) commands.Add(command);
  }
  return commands;
}

}  // namespace Zelk::Analysis::Diff
