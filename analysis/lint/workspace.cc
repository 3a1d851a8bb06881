#include "analysis/lint/workspace.h"

#include <algorithm>
#include <fnmatch.h>
#include <string>

namespace Zelk::Analysis::Lint {

bool Workspace::IsExternal(std::string_view name) const {
  const std::string text(name);
  return std::any_of(
      settings_.external.begin(), settings_.external.end(),
      [&](const std::string& pattern) { return fnmatch(pattern.c_str(), text.c_str(), 0) == 0; });
}

}  // namespace Zelk::Analysis::Lint
