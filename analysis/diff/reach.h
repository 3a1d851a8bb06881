#pragma once

#include <cstdint>
#include <vector>

#include "analysis/diff/kind.h"
#include "analysis/diff/pairs.h"
#include "analysis/workspace.h"

namespace Zelk::Analysis::Diff {

/// Which structures and enumerations callers send, and which ones they receive.
class Reach {
 public:
  Reach(const Workspace& old_version, const Workspace& new_version);

  /// Of a structure or an enumeration, in both versions together.
  Direction Of(Pair definition) const;

  /// Whether a type or an error of the version names something that is not in it.
  static bool IsMissed(const Workspace& version, std::string_view name);

 private:
  /// By elements: 1 for input, 2 for output.
  using Directions = std::vector<std::uint8_t>;

  Directions old_directions_;
  Directions new_directions_;
};

}  // namespace Zelk::Analysis::Diff
