#include "analysis/diff/fills.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <unordered_map>

#include "analysis/call.h"
#include "analysis/diff/mixed.h"
#include "analysis/options.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {

namespace {

auto KeyOf(const FieldFill& fill) {
  return std::tie(fill.structure, fill.field, fill.instance);
}

/// How many fields of each structure callers must send.
std::vector<std::size_t> RequiredFieldsOf(const Workspace& version) {
  const Model& metamodel = version.ModelOf(Domain::kMetamodel);
  std::vector<std::size_t> counts(metamodel.Size(), 0);
  for (ElementId id = 0; id < metamodel.Size(); ++id) {
    const Element& element = metamodel[id];
    if (element.kind != ElementKind::kField || !IsKept(element)) continue;
    if (!IsOptional(version, id)) ++counts[element.owner];
  }
  return counts;
}

/// A structure in what a command sends.
struct Sent {
  ElementId structure;
  /// How many required fields no option fills.
  std::size_t missing;
  /// How many required fields some command lines leave out.
  std::size_t uncertain;
};

/// By instances.
std::unordered_map<std::uint64_t, Sent> SentBy(const Fills& fills) {
  const std::vector<std::size_t> required = RequiredFieldsOf(fills.version);
  std::unordered_map<std::uint64_t, Sent> all;
  const FieldFill* last = nullptr;
  for (const FieldFill& fill : fills.all) {
    const std::size_t count = required[fill.structure];
    Sent& sent = all.try_emplace(fill.instance, Sent{fill.structure, count, count}).first->second;
    // Of equal keys, that of the best option comes first.
    const bool is_best = last == nullptr || KeyOf(*last) != KeyOf(fill);
    last = &fill;
    if (!is_best || IsOptional(fills.version, fill.field)) continue;
    --sent.missing;
    if (fill.is_always) --sent.uncertain;
  }
  return all;
}

/// Whether command lines worked that do not work now.
bool IsWorse(const Sent& before, const Sent& after) {
  return (before.missing == 0 && after.missing != 0) ||
         (before.uncertain == 0 && after.uncertain != 0);
}

}  // namespace

bool IsAlwaysGiven(const Model& cli, ElementId option) {
  const Takes* const takes = TakesOf(TextOf(cli, option, "generic"));
  return takes == nullptr || !takes->may_be_absent;
}

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
      fill.option = option;
      fill.command = cli[option].owner;
      fill.is_always = IsAlwaysGiven(cli, option);
      const Element& command = cli[fill.command];
      fill.instance = Mixed(Mixed(0, command.path), command.name);
    }
    fill.field = reference.target.element;
    if (fill.field == kNoElement || cli[fill.command].fate != Fate::kFound) continue;
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

std::unordered_set<ElementId> OptionsThatLackFields(const Fills& before, const Fills& after) {
  const auto old_sent = SentBy(before);
  const auto new_sent = SentBy(after);
  const Model& old_model = before.version.ModelOf(Domain::kMetamodel);
  const Model& new_model = after.version.ModelOf(Domain::kMetamodel);
  std::unordered_set<ElementId> options;
  for (const FieldFill& fill : before.all) {
    const auto found = new_sent.find(fill.instance);
    if (found == new_sent.end()) continue;
    const Sent& sent = found->second;
    const bool is_other = old_model[fill.structure].name != new_model[sent.structure].name;
    if (is_other && IsWorse(old_sent.at(fill.instance), sent)) options.insert(fill.option);
  }
  return options;
}

}  // namespace Zelk::Analysis::Diff
