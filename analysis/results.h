#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "analysis/workspace.h"

namespace Zelk::Analysis {

/// What the results of operations are made of. The workspace must outlive it.
class Results {
 public:
  explicit Results(const Workspace& workspace);

  /// Finds out what the result of the operation is made of.
  void Read(ElementId operation);

  /// The same if only the fields that `is_shown` returns true for are followed.
  void Read(ElementId operation, const std::function<bool(ElementId)>& is_shown);

  bool IsVoid() const { return is_void_; }

  bool HasStructure() const { return has_structure_; }

  /// True as well if it is not known what the result is made of.
  bool MayHave(ElementId structure) const { return is_open_ || reached_in_[structure] == round_; }

  /// The structures and enumerations that it is known to be made of, in no certain order.
  const std::vector<ElementId>& Found() const { return found_; }

  /// Whether there was too much to look at, so that the results that were read last are not known.
  bool IsExhausted() const { return visits_left_ == 0; }

 private:
  void Enter(ElementId part);

  const Model& model_;
  const References& references_;
  /// The operation that was read last. It was the round_th.
  ElementId operation_ = kNoElement;
  std::size_t round_ = 0;
  /// In which round each definition was last found.
  std::vector<std::size_t> reached_in_;
  std::vector<ElementId> found_;
  std::size_t visits_left_;
  bool is_void_ = false;
  bool is_open_ = false;
  bool has_structure_ = false;
};

}  // namespace Zelk::Analysis
