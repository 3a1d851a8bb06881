#pragma once

#include <list>
#include <string>
#include <vector>

#include "analysis/diff/change.h"

// What changed between two versions of metadata files, and whom it breaks. What is compared is what
// the library answers, wherever in the files it is.

namespace Zelk::Analysis::Diff {

struct Result {
  /// See Changes::Take().
  std::list<Change> changes;
  /// See Changes::Unlisted().
  VerdictCounts unlisted;
  /// Whether the files differ, which the fingerprints that the library returns show.
  bool fingerprints_differ = false;
};

/// A file that does not load in one of the versions, and is left out of both.
struct LostFile {
  /// That of the source.
  std::string id;
  /// As the user knows the one that does not load.
  std::string name;
  bool loads_in_old;
  /// Of the texts; empty for a version without the file.
  std::string old_fingerprint;
  std::string new_fingerprint;
};

/// The path that a change of such a file has in place of an element's.
std::string PathOf(const LostFile& file);

/// Files of the workspaces that do not load are passed over.
Result Compare(const Workspace& old_version, const Workspace& new_version,
               const Assumptions& assumptions = {}, const std::vector<LostFile>& lost = {});

}  // namespace Zelk::Analysis::Diff
