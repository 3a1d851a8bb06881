#pragma once

#include <map>
#include <string>
#include <vector>

#include "analysis/reader.h"

namespace Zelk::Analysis::Lint {

/// What projects choose about rules.
struct Settings {
  /// Patterns with '*', '?' and '[...]' of names whose sources are elsewhere on purpose.
  std::vector<std::string> external;

  /// Long and short options that clients have themselves.
  std::vector<std::string> reserved_options = {"help", "h"};

  /// By the ids of rules; for all findings of the rule.
  std::map<std::string, Severity> severities;
};

}  // namespace Zelk::Analysis::Lint
