#include "analysis/diff/renames.h"

#include <algorithm>

#include "analysis/near.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Whether one in five characters or fewer differs.
bool AreMuchAlike(std::string_view left, std::string_view right) {
  constexpr std::size_t kMost = 200;
  const std::size_t longest = std::max(left.size(), right.size());
  if (longest == 0) return false;
  if (left == right) return true;
  if (longest > kMost) return false;
  const std::size_t limit = longest / 5;
  return EditDistance(std::string(left), std::string(right), limit) <= limit;
}

}  // namespace

bool Renames::IsAlike(ElementId old_id, ElementId new_id) const {
  const Model& old_model = models_.old_model;
  const Model& new_model = models_.new_model;
  return AreMuchAlike(old_model.SimpleName(old_id), new_model.SimpleName(new_id)) ||
         AreMuchAlike(TextOf(old_model, old_id, "documentation"),
                      TextOf(new_model, new_id, "documentation"));
}

void Renames::Match(ElementId old_id, ByShape& added) {
  const auto [first, last] = added.equal_range(old_shapes_.Of(old_id));
  for (auto candidate = first; candidate != last && comparisons_left_ > 0; ++candidate) {
    --comparisons_left_;
    if (!IsAlike(old_id, candidate->second)) continue;
    old_to_new_.emplace(old_id, candidate->second);
    new_to_old_.emplace(candidate->second, old_id);
    added.erase(candidate);
    return;
  }
}

void Renames::Look(const std::vector<Pair>& pairs) {
  std::vector<ElementId> removed;
  std::vector<ElementId> added;
  for (const Pair& pair : pairs) {
    if (pair.IsMatched() || IsWithinChange(models_, pair)) continue;
    (pair.IsAdded() ? added : removed).push_back(pair.Id());
  }
  if (removed.empty() || added.empty()) return;
  ByShape by_shape;
  for (const ElementId id : added) by_shape.emplace(new_shapes_.Of(id), id);
  for (const ElementId id : removed) Match(id, by_shape);
}

std::string Renames::HintOf(Pair pair) const {
  const auto& found = pair.IsAdded() ? new_to_old_ : old_to_new_;
  const auto other = found.find(pair.IsAdded() ? pair.new_id : pair.old_id);
  if (other == found.end()) return "";
  const Model& model = pair.IsAdded() ? models_.old_model : models_.new_model;
  return std::string("possibly renamed ") + (pair.IsAdded() ? "from '" : "to '") +
         Shortened(model.FullName(other->second)) + "'";
}

}  // namespace Zelk::Analysis::Diff
