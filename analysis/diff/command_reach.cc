#include "analysis/diff/command_reach.h"

#include <algorithm>
#include <utility>

#include "analysis/call.h"
#include "analysis/diff/cli_comparers.h"
#include "analysis/options.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

bool IsAnswered(const Element& element) {
  return element.fate == Fate::kFound;
}

/// Calls `look` with the fills of the structure.
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
  naming_sum_.reset();
  ElementId last = kNoElement;
  for (const Reference* reference : old_.GetReferences().To({Domain::kMetamodel, old_id})) {
    // A path may lead through the element several times.
    if (reference->from.element == last) continue;
    if (IsStillNamed(*reference)) naming_.push_back(last = reference->from.element);
  }
  return naming_;
}

Commands CommandReach::Naming(ElementId old_id) {
  Commands commands;
  for (const ElementId id : StillNaming(old_id)) commands.Add(CommandOf(id));
  return commands;
}

Commands CommandReach::UsingGone(Pair pair) {
  Commands commands;
  if (models_.old_model.Size() == 0) return commands;
  std::vector<ElementId> gone = PartsWith(metamodels_, pair);
  gone.push_back(pair.old_id);
  for (const ElementId id : gone) commands.Add(Naming(id));
  return commands;
}

const PrintedWhole& CommandReach::Printed() {
  if (!printed_) printed_.emplace(old_);
  return *printed_;
}

std::vector<ElementId> CommandReach::NoLongerNamed(Pair part) const {
  std::unordered_set<std::string_view> still;
  for (const Reference& each : new_.GetReferences().From({Domain::kMetamodel, part.new_id})) {
    still.insert(each.name);
  }
  std::vector<ElementId> gone;
  for (const Reference& each : old_.GetReferences().From({Domain::kMetamodel, part.old_id})) {
    const ElementId id = each.target.element;
    if (id != kNoElement && still.count(each.name) == 0) gone.push_back(id);
  }
  return gone;
}

std::vector<ElementId> CommandReach::Showing(ElementId old_part) {
  const Element& part = metamodels_.old_model[old_part];
  if (part.kind == ElementKind::kResult) return StillNaming(part.owner);
  std::vector<ElementId> commands;
  for (const ElementId id : StillNaming(old_part)) {
    if (models_.old_model[id].kind == ElementKind::kOutputField) commands.push_back(CommandOf(id));
  }
  Printed().ForEachCommand(part.owner, [&](ElementId command) {
    if (NewOf(command) != kNoElement) commands.push_back(command);
  });
  return commands;
}

Commands CommandReach::PrintingOther(Pair part) {
  Commands commands;
  const std::vector<ElementId> gone = NoLongerNamed(part);
  if (gone.empty()) return commands;
  for (const ElementId command : Showing(part.old_id)) {
    const bool is_printed = std::any_of(gone.begin(), gone.end(), [&](ElementId structure) {
      return Printed().Has(structure, command);
    });
    if (is_printed) commands.Add(command);
  }
  return commands;
}

const CommandReach::Readers& CommandReach::ReadersOf(ElementId old_structure,
                                                     Class Reading::*meaning) {
  if (read_structure_ == old_structure && meaning_ == meaning) return readers_;
  read_structure_ = old_structure;
  meaning_ = meaning;
  readers_ = {};
  readers_.is_exhausted = Printed().IsExhausted();
  Printed().ForEachCommand(old_structure, [&](ElementId command) {
    const ElementId now = NewOf(command);
    if (now == kNoElement) return;
    const Reading& reading = ReadingOf(FormatterOf(models_.new_model, now));
    const Class verdict = meaning == nullptr ? Class::kBreaking : reading.*meaning;
    if (verdict == Class::kBreaking) names_.AddOrCount(readers_.broken, command);
    if (verdict == Class::kDangerous) names_.AddOrCount(readers_.endangered, command);
  });
  return readers_;
}

bool CommandReach::IsMisfit(ElementId option) {
  const auto [known, is_new] = misfits_.try_emplace(option, false);
  if (!is_new) return known->second;
  ReadFills();
  known->second =
      lacking_.count(option) != 0 || (CanFill(old_, option) && !CanFill(new_, NewOf(option)));
  return known->second;
}

Commands CommandReach::Misfitting(ElementId old_part) {
  Commands commands;
  for (const ElementId id : StillNaming(old_part)) {
    const bool is_option = models_.old_model[id].kind == ElementKind::kOption;
    if (is_option && IsMisfit(id)) commands.Add(CommandOf(id));
  }
  return commands;
}

Commands CommandReach::Lacking(Pair owner, ElementId new_part) {
  const bool is_field = metamodels_.new_model[new_part].kind == ElementKind::kField;
  return is_field ? WithoutField(owner, new_part) : WithoutParameter(owner.old_id, new_part);
}

ElementId CommandReach::OldOf(ElementId new_command) {
  const Element& element = models_.new_model[new_command];
  const ElementId before = models_.old_model.Find(element.kind, element.name, element.path);
  return before != kNoElement && NewOf(before) == new_command ? before : kNoElement;
}

Commands CommandReach::WithoutParameter(ElementId operation, ElementId parameter) {
  const Model& cli = models_.new_model;
  std::set<ElementId> with;
  for (const Reference* reference : new_.GetReferences().To({Domain::kMetamodel, parameter})) {
    const ElementId option = reference->from.element;
    if (IsAlwaysGiven(cli, option)) with.insert(OldOf(cli[option].owner));
  }
  with.erase(kNoElement);
  const std::vector<ElementId>& all = StillNaming(operation);
  if (!naming_sum_) {
    naming_sum_ = 0;
    for (const ElementId command : all) *naming_sum_ += names_.NumberOf(command);
  }
  std::uint64_t more = *naming_sum_;
  for (const ElementId command : with) more -= names_.NumberOf(command);
  Commands commands;
  for (const ElementId command : all) {
    if (commands.IsFull()) break;
    if (with.count(command) != 0) continue;
    commands.Add(command);
    more -= names_.NumberOf(command);
  }
  commands.AddMore(more);
  return commands;
}

void CommandReach::ReadFills() {
  if (has_fills_) return;
  has_fills_ = true;
  old_fills_ = FillsOf(old_);
  new_fills_ = FillsOf(new_);
  lacking_ = OptionsThatLackFields({old_, old_fills_}, {new_, new_fills_});
}

void CommandReach::ReadBuilders(Pair structure) {
  ReadFills();
  if (built_ == structure.old_id) return;
  built_ = structure.old_id;
  std::unordered_set<std::uint64_t> still;
  ForEachFill(new_fills_, structure.new_id,
              [&](const FieldFill& fill) { still.insert(fill.instance); });
  builders_.clear();
  builder_of_.clear();
  builders_sum_ = 0;
  ForEachFill(old_fills_, structure.old_id, [&](const FieldFill& fill) {
    if (still.count(fill.instance) != 0 && NewOf(fill.command) != kNoElement) {
      if (!builder_of_.emplace(fill.instance, fill.command).second) return;
      builders_.insert({fill.command, fill.instance});
      builders_sum_ += names_.NumberOf(fill.command);
    }
  });
}

Commands CommandReach::WithoutField(Pair structure, ElementId field) {
  ReadBuilders(structure);
  const auto wanted = std::pair(structure.new_id, field);
  const auto is_before = [](const FieldFill& each, const auto& key) {
    return std::pair(each.structure, each.field) < key;
  };
  // Of equal instances, that of the best option comes first.
  std::unordered_set<std::uint64_t> seen;
  std::unordered_set<std::uint64_t> filled;
  auto fill = std::lower_bound(new_fills_.begin(), new_fills_.end(), wanted, is_before);
  for (; fill != new_fills_.end() && std::pair(fill->structure, fill->field) == wanted; ++fill) {
    const bool is_best = seen.insert(fill->instance).second;
    if (is_best && fill->is_always) filled.insert(fill->instance);
  }
  Commands commands;
  for (const auto& [command, instance] : builders_) {
    if (commands.IsFull()) break;
    if (filled.count(instance) == 0) commands.Add(command);
  }
  std::uint64_t more = builders_sum_;
  for (const std::uint64_t instance : filled) {
    const auto builder = builder_of_.find(instance);
    if (builder != builder_of_.end()) more -= names_.NumberOf(builder->second);
  }
  for (const ElementId command : commands.Ids()) more -= names_.NumberOf(command);
  commands.AddMore(more);
  return commands;
}

}  // namespace Zelk::Analysis::Diff
