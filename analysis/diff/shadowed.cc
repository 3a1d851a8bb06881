#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/comparers.h"
#include "analysis/diff/texts.h"
#include "analysis/diff/verdicts.h"
#include "analysis/fates.h"
#include "analysis/fingerprint.h"

// Of definitions with the same name, lookups find one. The others are in the records of what they
// are in, such as the structures of a service.

namespace Zelk::Analysis::Diff {
namespace {

/// The kinds whose records have definitions with lookups of their own.
constexpr std::array<ElementKind, 6> kOwners{ElementKind::kComponent,   ElementKind::kPackage,
                                             ElementKind::kService,     ElementKind::kStructure,
                                             ElementKind::kPackageList, ElementKind::kServiceList};

bool IsDefinition(const Element& element) {
  return IsKept(element) && HasLookup(element.kind);
}

bool IsShadowed(const Model& model, ElementId id) {
  return id != kNoElement && model[id].fate == Fate::kShadowed;
}

/// Whether a record may have a definition that lookups do not find.
bool HasShadowed(const Model& model) {
  for (ElementId id = 0; id < model.Size(); ++id) {
    const bool is_in_record = IsShadowed(model, id) && model[id].owner != kNoElement;
    if (is_in_record && HasLookup(model[id].kind)) return true;
  }
  return false;
}

class ShadowedComparer {
 public:
  ShadowedComparer(Changes& changes, Domain domain)
      : changes_(changes), domain_(domain), models_(changes.Models(domain)) {}

  void Compare() {
    if (!HasShadowed(models_.old_model) && !HasShadowed(models_.new_model)) return;
    for (const ElementKind kind : kOwners) {
      for (const Pair& pair : LookupPairs(models_, kind)) {
        if (pair.IsMatched()) open_.push_back(pair);
      }
    }
    while (!open_.empty()) {
      const Pair owners = open_.back();
      open_.pop_back();
      LookInto(owners);
    }
  }

 private:
  using Parts = std::map<LookupKey, Pair>;

  static void Take(const Model& model, ElementId owner, ElementId Pair::*id, Parts& parts) {
    if (owner == kNoElement) return;
    for (const ElementId part : model.Children(owner)) {
      if (!IsDefinition(model[part])) continue;
      parts.try_emplace(KeyOf(model[part]), Pair{kNoElement, kNoElement}).first->second.*id = part;
    }
  }

  void LookInto(Pair owners) {
    Parts parts;
    Take(models_.old_model, owners.old_id, &Pair::old_id, parts);
    Take(models_.new_model, owners.new_id, &Pair::new_id, parts);
    for (const auto& [key, part] : parts) {
      if (part.IsMatched()) {
        // What lookups find in both versions is compared as that.
        if (!IsShadowed(part)) continue;
        open_.push_back(part);
        Look(part);
      } else if (IsShadowed(part) ? !IsImplied(part) : IsReplaced(part)) {
        Look(part);
      } else if (IsShadowed(part)) {
        // It is there because of what is in it.
        open_.push_back(part);
      }
    }
  }

  bool IsShadowed(Pair part) const {
    return Diff::IsShadowed(models_.old_model, part.old_id) ||
           Diff::IsShadowed(models_.new_model, part.new_id);
  }

  bool IsImplied(Pair part) const { return models_.Of(part)[part.Id()].is_implied; }

  /// Whether lookups in the other version find another definition in the same owner.
  bool IsReplaced(Pair part) const {
    const Model& model = models_.Of(part);
    const Model& other = models_.WithoutIt(part);
    const Element& element = model[part.Id()];
    const ElementId found = other.Find(element.kind, element.name, element.path);
    if (found == kNoElement) return false;
    const Element& owner = model[element.owner];
    const Element& other_owner = other[other[found].owner];
    return owner.kind == other_owner.kind && owner.name == other_owner.name;
  }

  std::string TextOf(const Model& model, ElementId id, WithDocumentation with) const {
    return id == kNoElement ? "" : RecordText(model, id, with);
  }

  void Look(Pair part) {
    // Of what it is in, both a lookup and a record may have it.
    if (!seen_.insert({part.old_id, part.new_id}).second) return;
    const auto is_same = [&](WithDocumentation with) {
      before_ = TextOf(models_.old_model, part.old_id, with);
      after_ = TextOf(models_.new_model, part.new_id, with);
      return before_ == after_;
    };
    Details details;
    if (is_same(WithDocumentation::kNo)) {
      if (is_same(WithDocumentation::kYes)) return;
      details.verdicts = Verdicts{kN, kT, kN, kN, kT};
    } else if (domain_ == Domain::kAuthentication) {
      details.verdicts = Verdicts{kN, kN, kN, kD, kD};
    } else {
      details.verdicts = Verdicts{kD, kD, kN, kN, kD};
    }
    details.identity =
        std::to_string(FingerprintOf(before_)) + ' ' + std::to_string(FingerprintOf(after_));
    const Model& model = models_.Of(part);
    details.message = Called(model, part.Id()) + " in the record of " +
                      Called(model, model[part.Id()].owner) + " was " +
                      (part.IsAdded()     ? "added"
                       : part.IsRemoved() ? "removed"
                                          : "changed");
    changes_.Add("shadowed-definition-changed", domain_, part, std::move(details));
  }

  Changes& changes_;
  Domain domain_;
  ModelPair models_;
  std::vector<Pair> open_;
  std::set<std::pair<ElementId, ElementId>> seen_;
  std::string before_;
  std::string after_;
};

}  // namespace

void CompareShadowed(Changes& changes, Domain domain) {
  // Namespaces have only the names of what is in them.
  if (domain != Domain::kCli) ShadowedComparer(changes, domain).Compare();
}

}  // namespace Zelk::Analysis::Diff
