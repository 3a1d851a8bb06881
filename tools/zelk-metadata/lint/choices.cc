#include "lint/choices.h"

#include <chrono>
#include <ctime>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <functional>
#include <utility>

#include "analysis/lint/configuration.h"
#include "host/load.h"

namespace Zelk::Tool::Lint {
namespace {

using Analysis::Document;
using Analysis::SettingsProblems;

/// Calls `read` with the document of the file, and adds what is wrong with the file to the
/// complaints.
void ReadFile(const std::string& path, std::vector<std::string>& complaints,
              const std::function<void(const Document&, SettingsProblems&)>& read) {
  auto text = TextOf(path);
  if (!text) {
    complaints.push_back(path + ": the file cannot be read");
    return;
  }
  const Document document(std::move(*text));
  if (!document.IsJson() || document[Analysis::kRootNode].kind != Analysis::NodeKind::kObject) {
    complaints.push_back(path + ": the file is not a JSON object");
    return;
  }
  SettingsProblems problems;
  read(document, problems);
  for (const auto& problem : problems) {
    const auto [line, column] = document.PositionAt(document[problem.node].begin);
    complaints.push_back(fmt::format("{}:{}:{}: {}", path, line, column, problem.text));
  }
}

std::string Today() {
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  return fmt::format("{:%Y-%m-%d}", fmt::gmtime(now));
}

}  // namespace

Choices ReadChoices(const std::string& configuration, const std::string& baseline) {
  Choices choices;
  choices.suppressions.today = Today();
  choices.configuration_file = configuration;
  if (!configuration.empty()) {
    ReadFile(configuration, choices.complaints, [&](const Document& document, auto& problems) {
      auto read = Analysis::Lint::ReadConfiguration(document);
      choices.settings = std::move(read.settings);
      choices.suppressions.ignored = std::move(read.ignored);
      choices.suppressions.needs_reasons = read.needs_reasons;
      choices.off = std::move(read.off);
      problems = std::move(read.problems);
    });
  }
  if (!baseline.empty()) {
    ReadFile(baseline, choices.complaints, [&](const Document& document, auto& problems) {
      choices.suppressions.baseline =
          Analysis::ReadAccepted(document, Analysis::kBaselineForm, problems);
    });
  }
  return choices;
}

}  // namespace Zelk::Tool::Lint
