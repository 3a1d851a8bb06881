#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/element_model.h"

// Which elements of two versions are the same one.

namespace Zelk::Analysis::Diff {

/// An element in both versions; kNoElement in the one that does not have it.
struct Pair {
  ElementId old_id;
  ElementId new_id;

  bool IsRemoved() const { return new_id == kNoElement; }

  bool IsAdded() const { return old_id == kNoElement; }

  bool IsMatched() const { return !IsRemoved() && !IsAdded(); }

  /// That in the old version, or of an added one in the new version.
  ElementId Id() const { return IsAdded() ? new_id : old_id; }
};

/// One domain in both versions.
struct ModelPair {
  const Model& old_model;
  const Model& new_model;

  /// The version of the element's Id().
  const Model& Of(Pair pair) const { return pair.IsAdded() ? new_model : old_model; }

  /// The version that does not have an element of one version only.
  const Model& WithoutIt(Pair pair) const { return pair.IsAdded() ? old_model : new_model; }
};

/// All elements of the kind that lookups return, wherever they are, in the order of their names.
std::vector<Pair> LookupPairs(const ModelPair& models, ElementKind kind);

/// The parts of that kind of an element that both versions have. Of parts with one name, the first
/// one is matched with the first one, and so on. In the old order; those that were added come last.
std::vector<Pair> PartPairs(const ModelPair& models, Pair owners, ElementKind kind);

/// The same, but of parts with one name, those with the same text are matched first.
std::vector<Pair> PartPairsByText(const ModelPair& models, Pair owners, ElementKind kind);

/// In which order both versions have the parts that both have.
struct PartOrder {
  bool is_changed;
  std::string old_names;
  std::string new_names;
};

PartOrder OrderOf(const ModelPair& models, const std::vector<Pair>& parts);

/// Whether the text of an element that both versions have is the same byte for byte. Then all parts
/// of it that have no lookups of their own are the same, too.
bool IsSameText(const ModelPair& models, Pair pair);

/// Whether what the element is in was added or removed with it. The change is then that of what it
/// is in.
bool IsWithinChange(const ModelPair& models, Pair pair);

/// What comes or goes with an element that one version has.
std::vector<ElementId> PartsWith(const ModelPair& models, Pair pair);

/// "", " with 1 service", " with 2 services and 12 operations": its PartsWith().
std::string ContentsOf(const ModelPair& models, Pair pair);

}  // namespace Zelk::Analysis::Diff
