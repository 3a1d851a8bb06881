#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "analysis/diff/pairs.h"

namespace Zelk::Analysis::Diff {

/// Parts of one kind of an element in both versions, such as the fields of a structure.
class OrderedParts {
 public:
  explicit OrderedParts(std::vector<Pair> all);

  const std::vector<Pair>& All() const { return all_; }

  /// Whether it was removed where another one was added, or the other way round.
  bool IsReplaced(Pair pair) const;

  /// The first part after this one that both versions have, or kNoElement.
  ElementId NextOf(Pair pair) const;

  bool IsLast(Pair pair) const { return NextOf(pair) == kNoElement; }

  /// Whether positions may mean other parts, since this one was added or removed.
  bool MayMove(Pair pair) const { return !IsLast(pair) || IsReplaced(pair); }

  /// For fingerprints of parts that are told apart by their positions: the part that it is in front
  /// of, whether it is replaced, and if `is_sent`, how many parts that both versions have are at
  /// other positions.
  std::string PositionOf(const ModelPair& models, Pair pair, bool is_sent) const;

 private:
  std::vector<Pair> all_;
  std::size_t moved_ = 0;
  std::set<ElementId> old_replaced_;
  std::set<ElementId> new_replaced_;
  std::vector<ElementId> old_kept_;
  std::vector<ElementId> new_kept_;
};

}  // namespace Zelk::Analysis::Diff
