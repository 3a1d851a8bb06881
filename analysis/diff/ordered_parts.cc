#include "analysis/diff/ordered_parts.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace Zelk::Analysis::Diff {

OrderedParts::OrderedParts(std::vector<Pair> all) : all_(std::move(all)) {
  std::vector<Pair> before;
  std::vector<Pair> after;
  for (const Pair& pair : all_) {
    if (!pair.IsAdded()) before.push_back(pair);
    if (!pair.IsRemoved()) after.push_back(pair);
  }
  std::sort(after.begin(), after.end(),
            [](const Pair& left, const Pair& right) { return left.new_id < right.new_id; });
  for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
    if (!before[i].IsRemoved() || !after[i].IsAdded()) continue;
    old_replaced_.insert(before[i].old_id);
    new_replaced_.insert(after[i].new_id);
  }
  std::unordered_map<ElementId, std::size_t> new_places;
  for (std::size_t i = 0; i < after.size(); ++i) new_places.emplace(after[i].new_id, i);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (!before[i].IsMatched()) continue;
    old_kept_.push_back(before[i].old_id);
    if (new_places.at(before[i].new_id) != i) ++moved_;
  }
  for (const Pair& pair : after) {
    if (pair.IsMatched()) new_kept_.push_back(pair.new_id);
  }
}

bool OrderedParts::IsReplaced(Pair pair) const {
  return old_replaced_.count(pair.old_id) != 0 || new_replaced_.count(pair.new_id) != 0;
}

ElementId OrderedParts::NextOf(Pair pair) const {
  const std::vector<ElementId>& kept = pair.IsAdded() ? new_kept_ : old_kept_;
  const auto next = std::upper_bound(kept.begin(), kept.end(), pair.Id());
  return next == kept.end() ? kNoElement : *next;
}

std::string OrderedParts::PositionOf(const ModelPair& models, Pair pair, bool is_sent) const {
  std::string position;
  if (!IsLast(pair)) position = models.Of(pair)[NextOf(pair)].name;
  if (IsReplaced(pair)) position += " is replaced";
  if (is_sent && MayMove(pair)) position += " moves " + std::to_string(moved_);
  return position;
}

}  // namespace Zelk::Analysis::Diff
