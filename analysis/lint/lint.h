#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "analysis/lint/finding.h"
#include "analysis/lint/suppression.h"

// Finds mistakes that the library accepts without a message.

namespace Zelk::Analysis::Lint {

/// A rule that could not run, because no file of a domain that it needs was loaded.
struct SkippedRule {
  const Rule* rule;
  Domain needed;
};

struct Result {
  /// By file name, then by place, then by rule.
  std::vector<Finding> findings;
  /// How many more there are of each severity; see Findings::Unlisted().
  std::array<std::size_t, 3> unlisted;
  std::vector<SkippedRule> skipped;
  std::vector<Unused> unused;
};

/// Runs the rules. A file that does not load is passed over. The suppressions must outlive the
/// result.
Result Lint(const Workspace& workspace, const std::vector<const Rule*>& rules,
            const Suppressions& suppressions = {});

/// Whether the rule looks at anything if the domains are loaded.
bool LooksAt(const Rule& rule, DomainSet loaded);

/// Those that are not off.
std::vector<const Rule*> DefaultRules();

}  // namespace Zelk::Analysis::Lint
