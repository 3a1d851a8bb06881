#include "analysis/diff/authentication_lists.h"

#include <algorithm>
#include <set>
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

/// How many schemes of a list are shown.
constexpr std::size_t kMostSchemes = 20;

/// " and 3 more", or an empty text if all are shown.
std::string More(std::size_t count, std::size_t most) {
  return count > most ? " and " + std::to_string(count - most) + " more" : "";
}

/// The positions of the first entries of those schemes that the set has, or does not have.
Positions PositionsOf(const SchemeList& list, const Schemes& set, bool is_in) {
  std::set<SchemeNumber> seen;
  Positions positions;
  for (std::size_t i = 0; i < list.schemes.size(); ++i) {
    const SchemeNumber scheme = list.schemes[i];
    const bool is_wanted = Has(set, scheme) == is_in;
    if (is_wanted && seen.insert(scheme).second) positions.push_back(i);
  }
  return positions;
}

/// The component that the list is in.
ElementId ComponentOf(const Model& model, ElementId list) {
  while (model[list].kind != ElementKind::kComponent) list = model[list].owner;
  return list;
}

const char* KindOfReplaced(const Scheme& before, const Scheme& after) {
  if (before.id != after.id) return "authentication-scheme-id-changed";
  return before.type != after.type ? "authentication-scheme-type-changed"
                                   : "authentication-session-manager-changed";
}

}  // namespace

std::string TextOf(const SchemeTable& table, const SchemeList& list) {
  std::string text;
  for (std::size_t i = 0; i < std::min(list.schemes.size(), kMostSchemes); ++i) {
    text += (i == 0 ? "" : ", ") + Shown(table[list.schemes[i]]);
  }
  return text + More(list.schemes.size(), kMostSchemes);
}

std::string MoreLists(std::size_t count) {
  if (count == 1) return "";
  return "; and " + std::to_string(count - 1) + (count == 2 ? " more list" : " more lists");
}

std::string ForLists(const std::string& witness, const std::string& first, std::size_t count) {
  if (count == 1 || witness.empty()) return witness;
  return "the list of " + first + ": " + witness + MoreLists(count);
}

ListsComparer::ListsComparer(Changes& changes, SchemeTable& table, Access& access)
    : changes_(changes),
      models_(changes.Models(Domain::kAuthentication)),
      needed_(changes.GetAssumptions().schemes),
      table_(table),
      access_(access),
      old_listed_(table.Listed(models_.old_model)),
      new_listed_(table.Listed(models_.new_model)) {}

void ListsComparer::Compare(Pair pair) {
  SchemeList before = table_.ListOf(models_.old_model, pair.old_id);
  SchemeList after = table_.ListOf(models_.new_model, pair.new_id);
  if (before.schemes == after.schemes) return;
  Schemes old_set = SetOf(before);
  Schemes new_set = SetOf(after);
  const Lists lists{pair, std::move(before), std::move(after), std::move(old_set),
                    std::move(new_set)};
  if (lists.old_set.empty() || lists.new_set.empty()) return CompareEmpty(lists);
  CompareOrder(lists, CompareSchemes(lists));
}

void ListsComparer::CompareEmpty(const Lists& lists) {
  const bool is_emptied = lists.new_set.empty();
  Effect effect = access_.EffectOf(models_.new_model[lists.pair.new_id]);
  Details details{ListOf(lists) +
                  (is_emptied ? " is empty now" : " was empty and has schemes now")};
  details.old_value = TextOf(table_, lists.before);
  details.new_value = TextOf(table_, lists.after);
  details.identity = effect.identity;
  details.opens_access = effect.opens_access;
  details.witness = std::move(effect.witness);
  details.assumption = access_.Assumed();
  if (effect.is_new_or_gone) details.hint = kConcernsNoCaller;
  Add(is_emptied ? "authentication-list-removed" : "authentication-list-added", lists,
      effect.access, std::move(details));
}

void ListsComparer::Add(std::string_view id, const Lists& lists, Class access, Details details) {
  details.verdicts = Verdicts{kN, kN, kN, access, kC};
  changes_.Add(id, Domain::kAuthentication, lists.pair, std::move(details));
}

void ListsComparer::CompareOrder(const Lists& lists, const Redefined& redefined) {
  const auto kept = [](const SchemeList& list, const Schemes& other) {
    std::vector<SchemeNumber> schemes;
    for (const std::size_t position : PositionsOf(list, other, kIsIn)) {
      schemes.push_back(list.schemes[position]);
    }
    return schemes;
  };
  SchemeList before = lists.before;
  for (SchemeNumber& scheme : before.schemes) {
    const auto now = redefined.find(scheme);
    if (now != redefined.end()) scheme = now->second;
  }
  const bool is_same_order = kept(before, lists.new_set) == kept(lists.after, SetOf(before));
  const bool is_same_set = lists.old_set == lists.new_set;
  if (is_same_order && !is_same_set) return;
  Details details{ListOf(lists) + (is_same_order ? " differs only in repeated schemes"
                                                 : " has its schemes in another order")};
  details.old_value = TextOf(table_, lists.before);
  details.new_value = TextOf(table_, lists.after);
  details.identity = table_.IdentityOf(lists.before) + ';' + table_.IdentityOf(lists.after);
  const bool may_matter = !is_same_order && needed_ == Assumptions::Schemes::kAny;
  if (!is_same_order) details.assumption = Assumed();
  Add("authentication-scheme-order-changed", lists, may_matter ? kD : kC, std::move(details));
}

ListsComparer::Redefined ListsComparer::CompareSchemes(const Lists& lists) {
  Positions removed = PositionsOf(lists.before, lists.new_set, !kIsIn);
  Positions added = PositionsOf(lists.after, lists.old_set, !kIsIn);
  const bool is_kept = removed.size() < lists.old_set.size();
  Redefined redefined = TakeRedefined(lists, removed, added);
  if (!is_kept && redefined.empty() && !removed.empty() && !added.empty()) {
    Details details{"all schemes of " + ListOf(lists) + " were replaced"};
    details.old_value = TextOf(table_, lists.before);
    details.new_value = TextOf(table_, lists.after);
    details.identity = table_.IdentityOf(lists.before) + ';' + table_.IdentityOf(lists.after);
    details.assumption = Assumed();
    details.witness =
        CallersOf(lists).TurnedAway(CallerWith(lists.before.schemes[removed.front()], lists));
    Add("authentication-schemes-replaced", lists, kB, std::move(details));
    return redefined;
  }
  for (const std::size_t position : removed) AddRemoved(lists, position);
  for (const std::size_t position : added) AddAdded(lists, position);
  return redefined;
}

void ListsComparer::AddRemoved(const Lists& lists, std::size_t position) {
  const SchemeNumber scheme = lists.before.schemes[position];
  const std::string shown = Shown(table_[scheme]);
  Details details{shown + " was removed from " + ListOf(lists)};
  details.old_value = shown;
  details.identity = table_.IdentityOf(scheme);
  details.old_node = models_.old_model[lists.before.entries[position]].node;
  details.assumption = Assumed();
  const bool are_all_needed = needed_ == Assumptions::Schemes::kAll;
  details.witness = are_all_needed ? CallersOf(lists).LetIn(lists.new_set)
                                   : CallersOf(lists).TurnedAway({scheme});
  Add("authentication-scheme-removed", lists, are_all_needed ? kD : kB, std::move(details));
}

void ListsComparer::AddAdded(const Lists& lists, std::size_t position) {
  const SchemeNumber scheme = lists.after.schemes[position];
  const std::string shown = Shown(table_[scheme]);
  Details details{shown + " was added to " + ListOf(lists)};
  details.new_value = shown;
  details.identity = table_.IdentityOf(scheme);
  details.new_node = models_.new_model[lists.after.entries[position]].node;
  details.assumption = Assumed();
  const bool are_all_needed = needed_ == Assumptions::Schemes::kAll;
  details.witness = are_all_needed ? CallersOf(lists).TurnedAway(lists.old_set)
                                   : CallersOf(lists).LetIn({scheme});
  Add("authentication-scheme-added", lists, are_all_needed ? kB : kD, std::move(details));
}

ListsComparer::Redefined ListsComparer::TakeRedefined(const Lists& lists, Positions& removed,
                                                      Positions& added) {
  Redefined redefined;
  if (removed.empty() || added.empty()) return redefined;
  std::map<std::uint32_t, std::size_t> by_id;
  std::map<std::string_view, std::size_t> by_name;
  for (const std::size_t position : added) {
    const SchemeNumber scheme = lists.after.schemes[position];
    // One that was listed before is not the new form of another one.
    if (Has(old_listed_, scheme)) continue;
    by_id.emplace(table_.IdOf(scheme), position);
    by_name.emplace(models_.new_model[lists.after.entries[position]].name, position);
  }
  std::set<std::size_t> taken;
  const auto take = [&](const auto& index, auto key, std::size_t position) {
    const auto found = index.find(key);
    if (found == index.end() || !taken.insert(found->second).second) return false;
    redefined.emplace(lists.before.schemes[position], lists.after.schemes[found->second]);
    Replace(lists, position, found->second);
    return true;
  };
  const auto is_replaced = [&](std::size_t position) {
    const SchemeNumber scheme = lists.before.schemes[position];
    if (Has(new_listed_, scheme)) return false;
    const std::string_view name = models_.old_model[lists.before.entries[position]].name;
    return take(by_id, table_.IdOf(scheme), position) || take(by_name, name, position);
  };
  const auto is_taken = [&](std::size_t position) { return taken.count(position) != 0; };
  removed.erase(std::remove_if(removed.begin(), removed.end(), is_replaced), removed.end());
  added.erase(std::remove_if(added.begin(), added.end(), is_taken), added.end());
  return redefined;
}

void ListsComparer::Replace(const Lists& lists, std::size_t removed, std::size_t added) {
  const SchemeNumber before = lists.before.schemes[removed];
  const SchemeNumber after = lists.after.schemes[added];
  Replacement& replacement =
      replaced_[{ComponentOf(models_.old_model, lists.pair.old_id),
                 ComponentOf(models_.new_model, lists.pair.new_id), before, after}];
  replacement.lists.push_back(lists.pair);
  if (replacement.lists.size() > 1) return;
  replacement.schemes = {models_.old_model[lists.before.entries[removed]].target,
                         models_.new_model[lists.after.entries[added]].target};
  replacement.witness = CallersOf(lists).TurnedAway(CallerWith(before, lists));
}

void ListsComparer::Finish() {
  for (const auto& [key, replacement] : replaced_) {
    const Scheme& before = table_[std::get<2>(key)];
    const Scheme& after = table_[std::get<3>(key)];
    const std::vector<Pair>& lists = replacement.lists;
    std::string places;
    for (std::size_t i = 0; i < std::min(lists.size(), kMostPlaces); ++i) {
      places += (i == 0 ? "" : ", ") + Called(models_.old_model, lists[i].old_id);
    }
    Details details{Shown(before) + " is now " + Shown(after) + " in the lists of " + places +
                    More(lists.size(), kMostPlaces)};
    details.old_value = Shown(before);
    details.new_value = Shown(after);
    details.identity = table_.IdentityOf(std::get<2>(key)) + table_.IdentityOf(std::get<3>(key));
    for (const Pair& list : lists) {
      // Names may be very long, and all schemes of a list may be replaced.
      const Element& element = models_.old_model[list.old_id];
      details.identity += std::string(Word(element.kind)) + ':' + Shortened(element.name) + ' ';
    }
    details.assumption = Assumed();
    details.witness =
        ForLists(replacement.witness, Called(models_.old_model, lists[0].old_id), lists.size());
    changes_.Add(KindOfReplaced(before, after), Domain::kAuthentication, replacement.schemes,
                 std::move(details));
  }
}

std::string ListsComparer::ListOf(const Lists& lists) const {
  return "the list of " + Called(models_.old_model, lists.pair.old_id);
}

Schemes ListsComparer::CallerWith(SchemeNumber scheme, const Lists& lists) const {
  return needed_ == Assumptions::Schemes::kAll ? lists.old_set : Schemes{scheme};
}

std::string ListsComparer::Assumed() const {
  return needed_ == Assumptions::Schemes::kAll ? "schemes: all" : "schemes: any";
}

}  // namespace Zelk::Analysis::Diff
