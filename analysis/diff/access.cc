#include "analysis/diff/access.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "analysis/diff/verdicts.h"

namespace Zelk::Analysis::Diff {
namespace {

/// From the innermost one outwards.
constexpr std::array<ElementKind, 3> kLevels{ElementKind::kOperationList, ElementKind::kServiceList,
                                             ElementKind::kPackageList};

bool IsDescribed(const Workspace& version, const Element& list) {
  const Model& model = version.ModelOf(Domain::kMetamodel);
  if (list.kind == ElementKind::kPackageList) {
    return model.Find(ElementKind::kPackage, list.name) != kNoElement;
  }
  if (list.kind == ElementKind::kServiceList) {
    return model.Find(ElementKind::kService, list.name) != kNoElement;
  }
  const std::string_view service = OwnerOf(list.name);
  const std::string_view operation = list.name.substr(service.size() + 1);
  const ElementId owner = model.Find(ElementKind::kService, service);
  return owner != kNoElement &&
         version.GetDefinitions().Part(owner, ElementKind::kOperation, operation) != kNoElement;
}

}  // namespace

Access::Access(const Changes& changes, SchemeTable& table)
    : old_version_(changes.Old()),
      new_version_(changes.New()),
      assumptions_(changes.GetAssumptions()),
      models_(changes.Models(Domain::kAuthentication)),
      table_(table) {}

Effect Access::EffectOf(const Element& list) {
  Effect effect;
  const auto& [before, old_print] = Nearest(models_.old_model, list, assumptions_.inheritance);
  const auto& [after, new_print] = Nearest(models_.new_model, list, assumptions_.inheritance);
  effect.identity = std::to_string(old_print) + ' ' + std::to_string(new_print);
  const bool is_of_one_version = IsOfOneVersion(list);
  effect.is_new_or_gone = is_of_one_version && !HasOldServices(list);
  if (effect.is_new_or_gone) return effect;
  const Callers callers(table_, before, after, assumptions_.schemes);
  if (callers.IsAnyTurnedAway()) {
    effect.access = kB;
    effect.witness = callers.TurnedAway();
  } else if (callers.IsAnyLetIn()) {
    effect.access = kD;
    effect.witness = callers.LetIn();
  }
  effect.opens_access = after.empty() && !before.empty();
  // Some hosts inherit where a list is empty, and others let everybody in.
  const auto has_schemes = [&](const Model& model) {
    return !Nearest(model, list, Inheritance::kNearest).schemes.empty();
  };
  const bool may_open = IsWrittenEmpty(models_.new_model, list) && has_schemes(models_.old_model);
  const bool may_close = IsWrittenEmpty(models_.old_model, list) && has_schemes(models_.new_model);
  if (may_open || may_close) effect.access = std::max(effect.access, kD);
  effect.opens_access |= may_open;
  // Services that came from another package, or went to one, may have had the schemes of that.
  if (is_of_one_version) effect.witness.clear();
  effect.identity += std::string(" ") + Word(effect.access);
  return effect;
}

std::string Access::Assumed() const {
  const bool is_nearest = assumptions_.inheritance == Inheritance::kNearest;
  const bool are_all_needed = assumptions_.schemes == Assumptions::Schemes::kAll;
  return std::string("inheritance: ") + (is_nearest ? "nearest" : "none") +
         ", schemes: " + (are_all_needed ? "all" : "any");
}

const ListedSchemes& Access::Nearest(const Model& model, const Element& list,
                                     Inheritance inheritance) {
  std::string_view name = list.name;
  for (const ElementKind level : kLevels) {
    // Levels inside the list.
    if (level > list.kind) continue;
    const ElementId id = model.Find(level, name);
    if (id != kNoElement) {
      const ListedSchemes& found = table_.SetOf(model, id);
      if (!found.schemes.empty()) return found;
    }
    if (inheritance == Inheritance::kNone) break;
    name = OwnerOf(name);
  }
  return none_;
}

bool Access::IsWrittenEmpty(const Model& model, const Element& list) {
  const ElementId id = model.Find(list.kind, list.name);
  return id != kNoElement && !model[id].is_implied && table_.SetOf(model, id).schemes.empty();
}

bool Access::IsOfOneVersion(const Element& list) const {
  const DomainSet both = old_version_.Loaded() & new_version_.Loaded();
  return (both & SetOf(Domain::kMetamodel)) != 0 &&
         IsDescribed(old_version_, list) != IsDescribed(new_version_, list);
}

bool Access::HasOldServices(const Element& list) {
  if (list.kind != ElementKind::kPackageList) return false;
  if (!packages_) {
    packages_.emplace();
    const ModelPair models{old_version_.ModelOf(Domain::kMetamodel),
                           new_version_.ModelOf(Domain::kMetamodel)};
    for (const Pair& service : LookupPairs(models, ElementKind::kService)) {
      if (!service.IsMatched()) continue;
      const Element& before = models.old_model[service.old_id];
      const Element& after = models.new_model[service.new_id];
      packages_->insert(OwnerOf(before.name));
      packages_->insert(models.old_model[before.owner].name);
      packages_->insert(models.new_model[after.owner].name);
    }
  }
  return packages_->count(list.name) != 0;
}

}  // namespace Zelk::Analysis::Diff
