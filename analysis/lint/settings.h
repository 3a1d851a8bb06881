#pragma once

#include <string>
#include <vector>

namespace Zelk::Analysis::Lint {

/// What projects choose about rules.
struct Settings {
  /// Patterns with '*', '?' and '[...]' of names whose sources are elsewhere on purpose.
  std::vector<std::string> external;

  /// Long and short options that clients have themselves.
  std::vector<std::string> reserved_options = {"help", "h"};
};

}  // namespace Zelk::Analysis::Lint
