#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "analysis/lint/settings.h"
#include "analysis/workspace.h"

namespace Zelk::Analysis::Lint {

/// What rules look at: the files, and what their project chooses.
class Workspace : public Analysis::Workspace {
 public:
  explicit Workspace(std::vector<File> files, Settings settings = {})
      : Analysis::Workspace(std::move(files)), settings_(std::move(settings)) {}

  /// Whether the name is one whose source is elsewhere on purpose.
  bool IsExternal(std::string_view name) const;

  const Settings& GetSettings() const { return settings_; }

 private:
  Settings settings_;
};

}  // namespace Zelk::Analysis::Lint
