#pragma once

#include <set>
#include <string>
#include <vector>

#include "analysis/lint/settings.h"
#include "analysis/lint/suppression.h"

namespace Zelk::Tool::Lint {

/// What the project chose about rules, and which findings it accepts.
struct Choices {
  Analysis::Lint::Settings settings;
  Analysis::Lint::Suppressions suppressions;

  /// The ids of rules that only run if they are asked for.
  std::set<std::string> off;

  /// The file that all this was read from; or empty.
  std::string configuration_file;

  /// What is wrong with the files.
  std::vector<std::string> complaints;
};

/// Reads the files. An empty path of a configuration stands for no file.
Choices ReadChoices(const std::string& configuration, const std::vector<std::string>& baselines);

}  // namespace Zelk::Tool::Lint
