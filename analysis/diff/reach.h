#pragma once

#include <cstdint>
#include <set>
#include <string_view>
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

  /// Whether a type or an error of the new version has a name that nothing in it has.
  bool IsMissed(std::string_view name) const { return missed_.count(name) != 0; }

 private:
  /// By elements: 1 for input, 2 for output.
  using Directions = std::vector<std::uint8_t>;

  Directions old_directions_;
  Directions new_directions_;
  std::set<std::string_view> missed_;
};

}  // namespace Zelk::Analysis::Diff
