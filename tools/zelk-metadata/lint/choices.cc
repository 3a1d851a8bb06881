#include "lint/choices.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "analysis/lint/configuration.h"
#include "host/project_file.h"

namespace Zelk::Tool::Lint {

Choices ReadChoices(const std::string& configuration, const std::vector<std::string>& baselines) {
  Choices choices;
  choices.suppressions.today = Today();
  choices.configuration_file = configuration;
  ReadProjectFile(configuration, choices.complaints,
                  [&](const Analysis::Document& document, auto& problems) {
                    auto read = Analysis::Lint::ReadConfiguration(document);
                    choices.settings = std::move(read.settings);
                    choices.suppressions.ignored = std::move(read.ignored);
                    choices.suppressions.needs_reasons = read.needs_reasons;
                    choices.off = std::move(read.off);
                    problems = std::move(read.problems);
                  });
  auto& accepted = choices.suppressions.baseline;
  for (const std::string& baseline : baselines) {
    ReadSettings(baseline, choices.complaints,
                 [&](const Analysis::Document& document, auto& problems) {
                   auto read = Analysis::ReadAccepted(document, Analysis::kBaselineForm, problems);
                   std::move(read.begin(), read.end(), std::back_inserter(accepted));
                 });
  }
  return choices;
}

}  // namespace Zelk::Tool::Lint
