#pragma once

#include <cstdint>
#include <vector>

#include "analysis/element_model.h"

namespace Zelk::Analysis::Diff {

/// Tells apart what elements of Metamodel are made of. The numbers are those of one run.
class Shapes {
 public:
  enum class Extent : std::uint8_t {
    /// Without documentation, and without the names of what the elements are in.
    kParts,
    /// All that is answered.
    kAll,
  };

  Shapes(const Model& model, Extent extent) : model_(model), extent_(extent) {}

  /// Of the element without its own name.
  std::uint64_t Of(ElementId id) const;

 private:
  void Read() const;
  std::uint64_t OwnOf(ElementId id) const;

  const Model& model_;
  Extent extent_;
  /// By elements; empty until one is asked for.
  mutable std::vector<std::uint64_t> shapes_;
};

}  // namespace Zelk::Analysis::Diff
