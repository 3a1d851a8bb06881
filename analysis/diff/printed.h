#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "analysis/workspace.h"

namespace Zelk::Analysis::Diff {

/// Which structures commands print with all their fields, since no output of the command lists
/// fields of the structure.
class PrintedWhole {
 public:
  explicit PrintedWhole(const Workspace& version);

  bool Has(ElementId structure, ElementId command) const;

  /// Calls `look` with the commands that print the structure so, in their order.
  template <typename Look>
  void ForEachCommand(ElementId structure, const Look& look) const {
    auto each = std::lower_bound(all_.begin(), all_.end(), std::pair(structure, ElementId{0}));
    for (; each != all_.end() && each->first == structure; ++each) look(each->second);
  }

  /// Whether there was too much to look at, so that commands may be missing.
  bool IsExhausted() const { return is_exhausted_; }

 private:
  /// Structures and commands, sorted.
  std::vector<std::pair<ElementId, ElementId>> all_;
  bool is_exhausted_ = false;
};

}  // namespace Zelk::Analysis::Diff
