#include "analysis/diff/metamodel.h"

#include <algorithm>
#include <array>

#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/comparers.h"
#include "analysis/diff/verdicts.h"

namespace Zelk::Analysis::Diff {
namespace {

/// The kinds that lookups return.
constexpr std::array<ElementKind, 5> kDefinitions{ElementKind::kComponent, ElementKind::kPackage,
                                                  ElementKind::kService, ElementKind::kStructure,
                                                  ElementKind::kEnumeration};

bool IsType(ElementKind kind) {
  return kind == ElementKind::kStructure || kind == ElementKind::kEnumeration;
}

/// Whether nothing that callers name goes with a component or a package.
bool IsOnlyAName(const ModelPair& models, ElementKind kind, Pair pair) {
  if (kind != ElementKind::kComponent && kind != ElementKind::kPackage) return false;
  const Model& model = models.Of(pair);
  const std::vector<ElementId> parts = PartsWith(models, pair);
  return std::none_of(parts.begin(), parts.end(), [&](ElementId id) {
    return model[id].kind == ElementKind::kService || IsType(model[id].kind);
  });
}

/// Who notices depends on whether something still names it, and on what goes with it.
void AddDefinition(Metamodel& metamodel, ElementKind kind, Pair pair) {
  Details details;
  if (pair.IsRemoved() && IsOnlyAName(metamodel.models, kind, pair)) {
    details.verdicts = Verdicts{kN, kN, kN, kN, kB};
  }
  if (IsType(kind)) {
    details.direction = metamodel.reach.Of(pair);
    const std::string_view name = metamodel.models.Of(pair)[pair.Id()].name;
    if (pair.IsRemoved() && metamodel.reach.IsMissed(name)) {
      details.verdicts = Verdicts{kB, kB, kN, kN, kB};
      details.others_broken = kAllAudiences;
      details.message = ", but is still used";
    }
  }
  metamodel.AddWhole(Word(kind), pair, std::move(details));
}

/// What the element is in. Its files do not matter.
void CompareOwners(Metamodel& metamodel, ElementKind kind, Pair pair) {
  const Model& old_model = metamodel.models.old_model;
  const Model& new_model = metamodel.models.new_model;
  if (kind == ElementKind::kComponent) return;
  const ElementId old_id = old_model[pair.old_id].owner;
  const ElementId new_id = new_model[pair.new_id].owner;
  const Element& old_element = old_model[old_id];
  const Element& new_element = new_model[new_id];
  if (old_element.kind == new_element.kind && old_element.name == new_element.name) return;
  const std::string old_owner = Called(old_model, old_id);
  const std::string new_owner = Called(new_model, new_id);
  metamodel.Add(Word(kind) + std::string("-moved"), pair,
                {metamodel.CalledIn(pair) + " was moved from " + old_owner + " to " + new_owner,
                 old_owner, new_owner});
}

void CompareDefinition(Metamodel& metamodel, ElementKind kind, Pair pair) {
  CompareOwners(metamodel, kind, pair);
  if (IsSameText(metamodel.models, pair)) return;
  CompareTexts(metamodel, pair);
  if (kind == ElementKind::kStructure) CompareStructure(metamodel, pair);
  if (kind == ElementKind::kEnumeration) CompareEnumeration(metamodel, pair);
  if (kind != ElementKind::kService) return;
  CompareConstants(metamodel, pair);
  const auto operations = PartPairs(metamodel.models, pair, ElementKind::kOperation);
  metamodel.renames.Look(operations);
  for (const Pair& operation : operations) {
    if (!operation.IsMatched()) {
      metamodel.AddWhole("operation", operation);
    } else if (!IsSameText(metamodel.models, operation)) {
      CompareTexts(metamodel, operation);
      CompareOperation(metamodel, operation);
    }
  }
}

}  // namespace

std::string Metamodel::CalledIn(Pair pair) const {
  return changes.IsFull() ? "" : Called(models.Of(pair), pair.Id());
}

void Metamodel::AddWhole(const std::string& kind, Pair pair, Details details) {
  const std::string action = pair.IsAdded() ? "added" : "removed";
  details.message = CalledIn(pair) + ContentsOf(models, pair) + " was " + action + details.message;
  const bool may_break = pair.IsRemoved() && details.breaks.text.empty();
  if (may_break) details.breaks = commands.NamesOf(commands.UsingGone(pair));
  if (!changes.IsFull()) details.hint = renames.HintOf(pair);
  Add(kind + "-" + action, pair, std::move(details));
}

void CompareMetamodel(Changes& changes) {
  Metamodel metamodel(changes);
  CompareResources(metamodel);
  CompareReachableOutputs(changes);
  for (const ElementKind kind : kDefinitions) {
    const std::vector<Pair> pairs = LookupPairs(metamodel.models, kind);
    metamodel.renames.Look(pairs);
    for (const Pair& pair : pairs) {
      if (pair.IsMatched()) {
        CompareDefinition(metamodel, kind, pair);
      } else if (!IsWithinChange(metamodel.models, pair)) {
        AddDefinition(metamodel, kind, pair);
      }
    }
  }
}

}  // namespace Zelk::Analysis::Diff
