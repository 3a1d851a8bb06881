#pragma once

#include <string>
#include <vector>

#include "analysis/accepted.h"
#include "analysis/lint/finding.h"

// What projects accept. In a file, the member "$lint" of an object covers the object:
//
//   "$lint": {"ignore": ["missing-documentation"], "reason": "internal", "until": "2030-01-31"}

namespace Zelk::Analysis::Lint {

/// An entry under "ignore" in the configuration.
struct Ignored {
  std::string rule;
  /// A pattern of element paths, with '*', '?' and '[...]'.
  std::string element;
  std::string reason;
  /// The last day on which it holds, as YYYY-MM-DD; empty for ever.
  std::string until;
};

struct Suppressions {
  std::vector<Ignored> ignored;
  std::vector<Accepted> baseline;
  /// As YYYY-MM-DD.
  std::string today;
  bool needs_reasons = false;
};

/// Something outside of the linted files that suppresses nothing.
struct Unused {
  SuppressedBy where;
  std::string message;
};

/// Marks what "$lint" suppresses. If the rule about suppressions is one of `rules`, adds a finding
/// for each "$lint" that has no effect.
void SuppressInFiles(const Workspace& workspace, const Suppressions& suppressions,
                     const std::vector<const Rule*>& rules, Findings& findings);

/// Marks what the configuration and the baseline suppress. Returns what of them has no effect,
/// unless its rule did not run.
std::vector<Unused> SuppressElsewhere(const Workspace& workspace, const Suppressions& suppressions,
                                      const std::vector<const Rule*>& rules,
                                      std::vector<Finding>& findings);

}  // namespace Zelk::Analysis::Lint
