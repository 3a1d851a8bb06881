#include "analysis/diff/authentication_lists.h"

#include <algorithm>
#include <utility>

#include "analysis/diff/verdicts.h"

// Schemes are compared by what is answered. The names that they have in a file, which no client
// sees, only help to recognize a scheme whose definition was changed.

namespace Zelk::Analysis::Diff {
namespace {

using Positions = std::vector<std::size_t>;

constexpr bool kIsIn = true;

/// How many lists a change of a scheme names.
constexpr std::size_t kMostPlaces = 5;

/// The positions of the first entries of those schemes that the set has, or does not have.
Positions PositionsOf(const SchemeList& list, const Schemes& set, bool is_in) {
  Schemes seen;
  Positions positions;
  for (std::size_t i = 0; i < list.schemes.size(); ++i) {
    const Scheme& scheme = list.schemes[i];
    const bool is_wanted = (set.count(scheme) != 0) == is_in;
    if (is_wanted && seen.insert(scheme).second) positions.push_back(i);
  }
  return positions;
}

/// All schemes that lists which are answered name.
Schemes Listed(const Model& model) {
  Schemes listed;
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (!IsSchemeList(model[id].kind) || model[id].fate != Fate::kFound) continue;
    for (const Scheme& scheme : SchemesOf(model, id).schemes) listed.insert(scheme);
  }
  return listed;
}

/// The component that the list is in.
std::string_view ComponentOf(const Model& model, ElementId list) {
  while (model[list].kind != ElementKind::kComponent) list = model[list].owner;
  return model[list].name;
}

const char* KindOfReplaced(const Scheme& before, const Scheme& after) {
  if (before.id != after.id) return "authentication-scheme-id-changed";
  return before.type != after.type ? "authentication-scheme-type-changed"
                                   : "authentication-session-manager-changed";
}

}  // namespace

std::string TextOf(const SchemeList& list) {
  std::string text;
  for (const Scheme& scheme : list.schemes) text += (text.empty() ? "" : ", ") + Shown(scheme);
  return text;
}

Schemes SetOf(const SchemeList& list) {
  return {list.schemes.begin(), list.schemes.end()};
}

ListsComparer::ListsComparer(Changes& changes)
    : changes_(changes),
      models_(changes.Models(Domain::kAuthentication)),
      needed_(changes.GetAssumptions().schemes),
      old_listed_(Listed(models_.old_model)),
      new_listed_(Listed(models_.new_model)) {}

void ListsComparer::Compare(Pair pair) {
  Lists lists{pair,
              SchemesOf(models_.old_model, pair.old_id),
              SchemesOf(models_.new_model, pair.new_id),
              {},
              {}};
  if (lists.before.schemes == lists.after.schemes) return;
  lists.old_set = SetOf(lists.before);
  lists.new_set = SetOf(lists.after);
  const std::string list = "the list of " + Called(models_.old_model, pair.old_id);
  if (lists.old_set.empty()) {
    Details details{list + " was empty"};
    details.new_value = TextOf(lists.after);
    details.witness = CallersOf(lists).TurnedAway({});
    return Add("authentication-list-added", lists, kB, std::move(details));
  }
  if (lists.new_set.empty()) {
    Details details{list + " is empty now"};
    details.old_value = TextOf(lists.before);
    details.witness = CallersOf(lists).LetIn({});
    return Add("authentication-list-removed", lists, kD, std::move(details));
  }
  CompareOrder(lists);
  CompareSchemes(lists);
}

void ListsComparer::Add(std::string_view id, const Lists& lists, Class access, Details details) {
  details.verdicts = Verdicts{kN, kN, kN, access, kC};
  changes_.Add(id, Domain::kAuthentication, lists.pair, std::move(details));
}

void ListsComparer::CompareOrder(const Lists& lists) {
  const auto kept = [](const SchemeList& list, const Schemes& other) {
    std::vector<Scheme> schemes;
    for (const std::size_t position : PositionsOf(list, other, kIsIn)) {
      schemes.push_back(list.schemes[position]);
    }
    return schemes;
  };
  const bool is_same_order = kept(lists.before, lists.new_set) == kept(lists.after, lists.old_set);
  const bool is_same_set = lists.old_set == lists.new_set;
  if (is_same_order && !is_same_set) return;
  Details details{"the list of " + Called(models_.old_model, lists.pair.old_id) +
                  (is_same_order ? " repeats other schemes" : " is in another order")};
  details.old_value = TextOf(lists.before);
  details.new_value = TextOf(lists.after);
  const bool may_matter = !is_same_order && needed_ == Assumptions::Schemes::kAny;
  if (!is_same_order) details.assumption = Assumed();
  Add("authentication-scheme-order-changed", lists, may_matter ? kD : kC, std::move(details));
}

void ListsComparer::CompareSchemes(const Lists& lists) {
  Positions removed = PositionsOf(lists.before, lists.new_set, !kIsIn);
  Positions added = PositionsOf(lists.after, lists.old_set, !kIsIn);
  const bool is_kept = removed.size() < lists.old_set.size();
  const bool is_replaced = TakeReplaced(lists, removed, added);
  const std::string list = "the list of " + Called(models_.old_model, lists.pair.old_id);
  if (!is_kept && !is_replaced && !removed.empty() && !added.empty()) {
    Details details{list + " has other schemes"};
    details.old_value = TextOf(lists.before);
    details.new_value = TextOf(lists.after);
    details.witness =
        CallersOf(lists).TurnedAway(CallerWith(lists.before.schemes[removed.front()], lists));
    return Add("authentication-schemes-replaced", lists, kB, std::move(details));
  }
  for (const std::size_t position : removed) AddRemoved(lists, position);
  for (const std::size_t position : added) AddAdded(lists, position);
}

void ListsComparer::AddRemoved(const Lists& lists, std::size_t position) {
  const Scheme& scheme = lists.before.schemes[position];
  Details details{"the list of " + Called(models_.old_model, lists.pair.old_id) +
                  " does not have " + Shown(scheme) + " any more"};
  details.old_value = Shown(scheme);
  details.old_node = models_.old_model[lists.before.entries[position]].node;
  details.assumption = Assumed();
  const bool are_all_needed = needed_ == Assumptions::Schemes::kAll;
  details.witness = are_all_needed ? CallersOf(lists).LetIn(lists.new_set)
                                   : CallersOf(lists).TurnedAway({scheme});
  Add("authentication-scheme-removed", lists, are_all_needed ? kD : kB, std::move(details));
}

void ListsComparer::AddAdded(const Lists& lists, std::size_t position) {
  const Scheme& scheme = lists.after.schemes[position];
  Details details{"the list of " + Called(models_.old_model, lists.pair.old_id) + " has " +
                  Shown(scheme) + ", too"};
  details.new_value = Shown(scheme);
  details.new_node = models_.new_model[lists.after.entries[position]].node;
  details.assumption = Assumed();
  const bool are_all_needed = needed_ == Assumptions::Schemes::kAll;
  details.witness = are_all_needed ? CallersOf(lists).TurnedAway(lists.old_set)
                                   : CallersOf(lists).LetIn({scheme});
  Add("authentication-scheme-added", lists, are_all_needed ? kB : kD, std::move(details));
}

bool ListsComparer::TakeReplaced(const Lists& lists, Positions& removed, Positions& added) {
  std::map<std::string_view, std::size_t> by_id;
  std::map<std::string_view, std::size_t> by_name;
  for (const std::size_t position : added) {
    const Scheme& scheme = lists.after.schemes[position];
    // One that was listed before is not the new form of another one.
    if (old_listed_.count(scheme) != 0) continue;
    by_id.emplace(scheme.id, position);
    by_name.emplace(models_.new_model[lists.after.entries[position]].name, position);
  }
  std::set<std::size_t> taken;
  const auto take = [&](const auto& index, std::string_view key, std::size_t position) {
    const auto found = index.find(key);
    if (found == index.end() || !taken.insert(found->second).second) return false;
    Replace(lists, position, found->second);
    return true;
  };
  const auto is_replaced = [&](std::size_t position) {
    const Scheme& scheme = lists.before.schemes[position];
    if (new_listed_.count(scheme) != 0) return false;
    const std::string_view name = models_.old_model[lists.before.entries[position]].name;
    return take(by_id, scheme.id, position) || take(by_name, name, position);
  };
  const auto is_taken = [&](std::size_t position) { return taken.count(position) != 0; };
  removed.erase(std::remove_if(removed.begin(), removed.end(), is_replaced), removed.end());
  added.erase(std::remove_if(added.begin(), added.end(), is_taken), added.end());
  return !taken.empty();
}

void ListsComparer::Replace(const Lists& lists, std::size_t removed, std::size_t added) {
  const Scheme& before = lists.before.schemes[removed];
  const Scheme& after = lists.after.schemes[added];
  const std::string_view component = ComponentOf(models_.old_model, lists.pair.old_id);
  Replacement& replacement = replaced_[{component, before, after}];
  replacement.lists.push_back(lists.pair);
  if (replacement.lists.size() > 1) return;
  replacement.schemes = {models_.old_model[lists.before.entries[removed]].target,
                         models_.new_model[lists.after.entries[added]].target};
  replacement.witness = CallersOf(lists).TurnedAway(CallerWith(before, lists));
}

void ListsComparer::Finish() {
  for (const auto& [scheme, replacement] : replaced_) {
    const auto& [component, before, after] = scheme;
    std::string places;
    for (std::size_t i = 0; i < std::min(replacement.lists.size(), kMostPlaces); ++i) {
      places += (i == 0 ? "" : ", ") + Called(models_.old_model, replacement.lists[i].old_id);
    }
    if (replacement.lists.size() > kMostPlaces) {
      places += " and " + std::to_string(replacement.lists.size() - kMostPlaces) + " more";
    }
    Details details{Shown(before) + " is now " + Shown(after) + " in the lists of " + places};
    details.old_value = Shown(before);
    details.new_value = Shown(after);
    details.witness = replacement.witness;
    changes_.Add(KindOfReplaced(before, after), Domain::kAuthentication, replacement.schemes,
                 std::move(details));
  }
}

Schemes ListsComparer::CallerWith(const Scheme& scheme, const Lists& lists) const {
  return needed_ == Assumptions::Schemes::kAll ? lists.old_set : Schemes{scheme};
}

std::string ListsComparer::Assumed() const {
  return needed_ == Assumptions::Schemes::kAll ? "schemes: all" : "schemes: any";
}

}  // namespace Zelk::Analysis::Diff
