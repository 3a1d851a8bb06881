#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "analysis/diff/pairs.h"
#include "analysis/diff/shapes.h"

namespace Zelk::Analysis::Diff {

/// Guesses which elements have only another name.
class Renames {
 public:
  Renames(const ModelPair& models, const Shapes& old_shapes, const Shapes& new_shapes)
      : models_(models), old_shapes_(old_shapes), new_shapes_(new_shapes) {}

  /// Looks at elements of one kind.
  void Look(const std::vector<Pair>& pairs);

  /// "possibly renamed to 'c.p.stop'", "possibly renamed from 'c.p.end'", or an empty text.
  std::string HintOf(Pair pair) const;

 private:
  /// Added elements.
  using ByShape = std::multimap<std::uint64_t, ElementId>;

  void Match(ElementId old_id, ByShape& added);

  /// Whether the names or the documentation are much alike.
  bool IsAlike(ElementId old_id, ElementId new_id) const;

  ModelPair models_;
  const Shapes& old_shapes_;
  const Shapes& new_shapes_;
  std::map<ElementId, ElementId> old_to_new_;
  std::map<ElementId, ElementId> new_to_old_;
  /// How many more elements may be compared. Comparing takes time, and a hint is only a hint.
  std::size_t comparisons_left_ = 5000;
};

}  // namespace Zelk::Analysis::Diff
