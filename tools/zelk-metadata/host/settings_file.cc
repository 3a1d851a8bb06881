#include "host/settings_file.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <string_view>
#include <system_error>
#include <utility>

#include <rapidjson/memorystream.h>

#include "analysis/json_heap.h"
#include "analysis/syntax_error.h"
#include "host/load.h"

namespace Zelk::Tool {
namespace {

/// Why the file cannot be read; empty if it can.
std::string WhyNotRead(const std::string& path, std::uintmax_t max_bytes) {
  std::error_code error;
  const bool is_file = std::filesystem::is_regular_file(path, error);
  if (error) return error.message();
  if (!is_file) return "it is not a regular file";
  if (std::filesystem::file_size(path, error) > max_bytes) {
    return fmt::format("it is larger than {} MiB", max_bytes >> 20U);
  }
  return WhyUnreadable(path);
}

/// Where and why the text is not JSON.
std::pair<std::size_t, std::string> SyntaxErrorOf(std::string_view text) {
  rapidjson::MemoryStream stream(text.data(), text.size());
  rapidjson::BaseReaderHandler<> ignored;
  Analysis::JsonReader reader;
  const rapidjson::ParseResult result =
      reader.Parse<rapidjson::kParseIterativeFlag>(stream, ignored);
  return {result.Offset(), Analysis::SyntaxErrorText(text, result.Code(), result.Offset())};
}

}  // namespace

void ReadSettings(const std::string& path, std::vector<std::string>& complaints,
                  const SettingsTaker& take, std::uintmax_t max_bytes) {
  const std::string why = WhyNotRead(path, max_bytes);
  if (!why.empty()) {
    complaints.push_back(path + ": " + why);
    return;
  }
  const Analysis::Document document(TextOf(path).value_or(""));
  const auto complain = [&](std::size_t offset, const std::string& text) {
    const auto [line, column] = document.PositionAt(offset);
    complaints.push_back(fmt::format("{}:{}:{}: {}", path, line, column, text));
  };
  if (!document.IsJson()) {
    const auto [offset, text] = SyntaxErrorOf(document.Text());
    complain(offset, text);
    return;
  }
  Analysis::SettingsProblems problems;
  if (Analysis::SettingsReader(document, problems).IsObject(Analysis::kRootNode)) {
    take(document, problems);
  }
  for (const auto& problem : problems) complain(document[problem.node].begin, problem.text);
}

std::string Today() {
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  return fmt::format("{:%Y-%m-%d}", fmt::gmtime(now));
}

std::string FingerprintText(std::uint64_t fingerprint) {
  return fmt::format("{:016x}", fingerprint);
}

}  // namespace Zelk::Tool
