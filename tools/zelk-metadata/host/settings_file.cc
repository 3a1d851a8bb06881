#include "host/settings_file.h"

#include <chrono>
#include <ctime>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <utility>

#include "host/load.h"

namespace Zelk::Tool {

void ReadSettings(
    const std::string& path, std::vector<std::string>& complaints,
    const std::function<void(const Analysis::Document&, Analysis::SettingsProblems&)>& read) {
  auto text = TextOf(path);
  if (!text) {
    complaints.push_back(path + ": the file cannot be read");
    return;
  }
  const Analysis::Document document(std::move(*text));
  if (!document.IsJson() || document[Analysis::kRootNode].kind != Analysis::NodeKind::kObject) {
    complaints.push_back(path + ": the file is not a JSON object");
    return;
  }
  Analysis::SettingsProblems problems;
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

std::string FingerprintText(std::uint64_t fingerprint) {
  return fmt::format("{:016x}", fingerprint);
}

}  // namespace Zelk::Tool
