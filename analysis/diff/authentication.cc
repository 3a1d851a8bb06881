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
        table_(models_),
        access_(changes, table_),
        lists_(changes, table_, access_) {}

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

  /// All lists in what is added or removed, itself included.
  std::vector<ElementId> AllLists(Pair pair) const {
    std::vector<ElementId> lists{pair.Id()};
    for (std::size_t next = 0; next < lists.size(); ++next) {
      const std::vector<ElementId> inner = ListsIn(pair, lists[next]);
      lists.insert(lists.end(), inner.begin(), inner.end());
    }
    if (!IsSchemeList(models_.Of(pair)[pair.Id()].kind)) lists.erase(lists.begin());
    return lists;
  }

  /// What lists mean for callers, together.
  struct Sum {
    Effect worst;
    /// The lists for which somebody is turned away or let in, and the worst of these.
    std::size_t concerned = 0;
    ElementId worst_list = kNoElement;
    /// The lists with schemes, and the first of these.
    std::size_t filled = 0;
    ElementId first_filled = kNoElement;
  };

  Sum SumOf(const Model& model, const std::vector<ElementId>& lists) {
    Sum sum;
    for (const ElementId id : lists) {
      if (!table_.SetOf(model, id).schemes.empty() && sum.filled++ == 0) sum.first_filled = id;
      Effect effect = access_.EffectOf(model[id]);
      Effect& worst = sum.worst;
      worst.identity += effect.identity + ' ';
      worst.opens_access |= effect.opens_access;
      worst.is_new_or_gone |= effect.is_new_or_gone;
      if (effect.access == kN) continue;
      ++sum.concerned;
      if (effect.access <= worst.access) continue;
      worst.access = effect.access;
      worst.witness = std::move(effect.witness);
      sum.worst_list = id;
    }
    return sum;
  }

  const char* WhatBecame(Pair pair, bool has_schemes) const {
    if (has_schemes) return pair.IsAdded() ? " has schemes now" : " has no schemes any more";
    const bool is_component = models_.Of(pair)[pair.Id()].kind == ElementKind::kComponent;
    if (is_component) return pair.IsAdded() ? " was added" : " was removed";
    return pair.IsAdded() ? " has an empty list now" : " has no list any more";
  }

  /// The first list with schemes, and how many more there are.
  std::string ValueOf(const Model& model, const Sum& sum) const {
    if (sum.filled == 0) return "";
    return TextOf(table_, table_.ListOf(model, sum.first_filled)) + MoreLists(sum.filled);
  }

  std::string IdOf(Pair pair, bool has_schemes) const {
    const bool is_component = models_.Of(pair)[pair.Id()].kind == ElementKind::kComponent;
    const std::string about = is_component  ? "authentication-component"
                              : has_schemes ? "authentication-list"
                                            : "authentication-entry";
    return about + (pair.IsAdded() ? "-added" : "-removed");
  }

  void AddWhole(Pair pair) {
    const Model& model = models_.Of(pair);
    Sum sum = SumOf(model, AllLists(pair));
    const bool has_schemes = sum.filled > 0;
    Details details{Called(model, pair.Id()) + ContentsOf(models_, pair) +
                    WhatBecame(pair, has_schemes)};
    (pair.IsAdded() ? details.new_value : details.old_value) = ValueOf(model, sum);
    details.identity = std::move(sum.worst.identity);
    details.opens_access = sum.worst.opens_access;
    if (sum.concerned > 0) {
      details.assumption = access_.Assumed();
      details.witness = ForLists(sum.worst.witness, Called(model, sum.worst_list), sum.concerned);
    } else if (sum.worst.is_new_or_gone) {
      details.hint = kConcernsNoCaller;
    }
    details.verdicts = Verdicts{kN, kN, kN, sum.worst.access, pair.IsAdded() ? kC : kB};
    changes_.Add(IdOf(pair, has_schemes), Domain::kAuthentication, pair, std::move(details));
  }

  void CompareOwners(Pair pair) {
    const auto component = [](const Model& model, ElementId id) {
      return std::string(model[model[id].owner].name);
    };
    Details details{Called(models_.old_model, pair.old_id) + " was moved to another component"};
    details.old_value = component(models_.old_model, pair.old_id);
    details.new_value = component(models_.new_model, pair.new_id);
    if (details.old_value == details.new_value) return;
    changes_.Add("authentication-package-moved", Domain::kAuthentication, pair, std::move(details));
  }

  Changes& changes_;
  ModelPair models_;
  SchemeTable table_;
  Access access_;
  ListsComparer lists_;
};

}  // namespace

void CompareAuthentication(Changes& changes) {
  AuthenticationComparer(changes).Compare();
}

}  // namespace Zelk::Analysis::Diff
