#include <string>
#include <utility>
#include <vector>

#include "analysis/diff/authentication_lists.h"
#include "analysis/diff/comparers.h"
#include "analysis/diff/verdicts.h"

// What is listed with authentication schemes.

namespace Zelk::Analysis::Diff {
namespace {

class AuthenticationComparer {
 public:
  explicit AuthenticationComparer(Changes& changes)
      : changes_(changes),
        models_(changes.Models(Domain::kAuthentication)),
        needed_(changes.GetAssumptions().schemes),
        lists_(changes) {}

  void Compare() {
    for (const ElementKind kind : {ElementKind::kComponent, ElementKind::kPackageList,
                                   ElementKind::kServiceList, ElementKind::kOperationList}) {
      for (const Pair& pair : LookupPairs(models_, kind)) {
        if (!pair.IsMatched()) {
          if (IsOutermost(pair)) AddWhole(Narrowed(pair));
        } else if (kind != ElementKind::kComponent) {
          lists_.Compare(pair);
          if (kind == ElementKind::kPackageList) CompareOwners(pair);
        }
      }
    }
    lists_.Finish();
  }

 private:
  bool IsInBoth(Pair pair, const Element& element) const {
    return models_.WithoutIt(pair).Find(element.kind, element.name) != kNoElement;
  }

  /// Whether what the list is in is not added or removed with it, or is not answered itself:
  /// several components may have lists for one service.
  bool IsOutermost(Pair pair) const {
    const Model& model = models_.Of(pair);
    const ElementId owner = model[pair.Id()].owner;
    return !IsWithinChange(models_, pair) || model[owner].fate != Fate::kFound;
  }

  /// The lists in one that is added or removed, as far as the other version does not have them.
  std::vector<ElementId> ListsIn(Pair pair, ElementId owner) const {
    const Model& model = models_.Of(pair);
    std::vector<ElementId> lists;
    for (const ElementId id : model.Children(owner)) {
      const Element& element = model[id];
      const bool is_list = IsSchemeList(element.kind) && element.fate == Fate::kFound;
      if (is_list && !IsInBoth(pair, element)) lists.push_back(id);
    }
    return lists;
  }

  /// Of a list that is there only because of a single one in it, that one.
  Pair Narrowed(Pair pair) const {
    ElementId& id = pair.IsAdded() ? pair.new_id : pair.old_id;
    while (models_.Of(pair)[id].is_implied) {
      const std::vector<ElementId> lists = ListsIn(pair, id);
      if (lists.size() != 1) break;
      id = lists.front();
    }
    return pair;
  }

  /// The first list with schemes in what is added or removed, or kNoElement.
  ElementId FirstList(Pair pair) const {
    const Model& model = models_.Of(pair);
    std::vector<ElementId> open{pair.Id()};
    for (std::size_t next = 0; next < open.size(); ++next) {
      const ElementId id = open[next];
      if (IsSchemeList(model[id].kind) && !SchemesOf(model, id).schemes.empty()) return id;
      const std::vector<ElementId> inner = ListsIn(pair, id);
      open.insert(open.end(), inner.begin(), inner.end());
    }
    return kNoElement;
  }

  void AddWhole(Pair pair) {
    const Model& model = models_.Of(pair);
    const ElementId id = pair.Id();
    const ElementId list = FirstList(pair);
    const bool is_component = model[id].kind == ElementKind::kComponent;
    const std::string about = is_component         ? "authentication-component"
                              : list == kNoElement ? "authentication-entry"
                                                   : "authentication-list";
    Details details{Called(model, id) + ContentsOf(models_, pair) +
                    (pair.IsAdded() ? " is listed now" : " is not listed any more")};
    Class access = kN;
    if (list != kNoElement) {
      access = pair.IsAdded() && !is_component ? kB : kD;
      const SchemeList schemes = SchemesOf(model, list);
      const Schemes set = SetOf(schemes);
      const Schemes none;
      (pair.IsAdded() ? details.new_value : details.old_value) = TextOf(schemes);
      details.witness = pair.IsAdded() ? Callers(none, set, needed_).TurnedAway({})
                                       : Callers(set, none, needed_).LetIn({});
    }
    details.verdicts = Verdicts{kN, kN, kN, access, pair.IsAdded() ? kC : kB};
    changes_.Add(about + (pair.IsAdded() ? "-added" : "-removed"), Domain::kAuthentication, pair,
                 std::move(details));
  }

  void CompareOwners(Pair pair) {
    const auto component = [](const Model& model, ElementId id) {
      return std::string(model[model[id].owner].name);
    };
    Details details{Called(models_.old_model, pair.old_id) + " is listed in another component"};
    details.old_value = component(models_.old_model, pair.old_id);
    details.new_value = component(models_.new_model, pair.new_id);
    if (details.old_value == details.new_value) return;
    changes_.Add("authentication-package-moved", Domain::kAuthentication, pair, std::move(details));
  }

  Changes& changes_;
  ModelPair models_;
  Assumptions::Schemes needed_;
  ListsComparer lists_;
};

}  // namespace

void CompareAuthentication(Changes& changes) {
  AuthenticationComparer(changes).Compare();
}

}  // namespace Zelk::Analysis::Diff
