#pragma once

#include <vector>

#include "analysis/diff/change.h"

// What changed between two versions of metadata files, and whom it breaks. What is compared is what
// the library answers, wherever in the files it is.

namespace Zelk::Analysis::Diff {

struct Result {
  /// See Changes::Take().
  std::vector<Change> changes;
  /// See Changes::Unlisted().
  VerdictCounts unlisted;
  /// Whether the files differ, which the fingerprints that the library returns show.
  bool fingerprints_differ = false;
};

/// Files that do not load are passed over.
Result Compare(const Workspace& old_version, const Workspace& new_version,
               const Assumptions& assumptions = {});

}  // namespace Zelk::Analysis::Diff
