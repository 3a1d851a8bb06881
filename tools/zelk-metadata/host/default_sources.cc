#include "host/default_sources.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <sstream>
#include <system_error>

#include "host/project_file.h"
#include "host/source_argument.h"

namespace Zelk::Tool {
namespace {

constexpr char kVariable[] = "ZELK_METADATA_PATH";

/// Why a text cannot be a default source; empty if it can.
std::string Refusal(const std::string& text) {
  const std::string path = ParseSourceArgument(text).path;
  if (path == "-") return "standard input cannot be a default source";
  // The system would take the part before a zero byte for the path.
  const bool is_path = !path.empty() && path.find('\0') == std::string::npos;
  return is_path ? "" : "a source needs a path";
}

DefaultSources FromVariable(const std::string& value) {
  DefaultSources defaults;
  std::istringstream texts(value);
  for (std::string text; std::getline(texts, text, ':');) {
    if (text.empty()) continue;
    const std::string refusal = Refusal(text);
    if (!refusal.empty()) return {{}, fmt::format("{}: {}", kVariable, refusal)};
    defaults.sources.push_back(text);
  }
  return defaults;
}

/// The source with its path relative to the file, not to its folder.
std::string Resolved(const std::string& file, const std::string& text) {
  const SourceArgument source = ParseSourceArgument(text);
  const auto path = std::filesystem::path(file).parent_path() / source.path;
  return source.is_named ? source.id + "=" + path.string() : path.string();
}

DefaultSources FromProject() {
  DefaultSources defaults;
  const std::string path = FindProjectFile();
  std::vector<std::string> complaints;
  ReadProjectFile(path, complaints, [&](const Analysis::Document& document, auto& problems) {
    Analysis::SettingsReader reader(document, problems);
    reader.ExpectProjectKeys();
    const auto list = reader.Member(Analysis::kRootNode, "sources", Analysis::NodeKind::kArray);
    reader.EachChild(list, [&](Analysis::NodeId node) {
      const std::string text(document.String(node));
      const bool is_text = document[node].kind == Analysis::NodeKind::kString;
      const std::string refusal = is_text ? Refusal(text) : "a source is a string";
      if (!refusal.empty()) reader.Complain(node, refusal);
      defaults.sources.push_back(Resolved(path, text));
    });
  });
  return complaints.empty() ? defaults : DefaultSources{{}, complaints.front()};
}

bool IsSame(const std::string& left, const std::string& right) {
  const SourceArgument one = ParseSourceArgument(left);
  const SourceArgument other = ParseSourceArgument(right);
  std::error_code ignored;
  return one.id == other.id && one.is_named == other.is_named &&
         std::filesystem::equivalent(one.path, other.path, ignored);
}

}  // namespace

DefaultSources FindDefaultSources() {
  const char* const value = std::getenv(kVariable);
  if (value != nullptr && *value != '\0') return FromVariable(value);
  return FromProject();
}

std::vector<std::string> WithDefaults(const std::vector<std::string>& defaults,
                                      const std::vector<std::string>& given) {
  std::vector<std::string> all;
  for (const std::string& source : defaults) {
    const bool is_given =
        std::any_of(given.begin(), given.end(),
                    [&source](const std::string& other) { return IsSame(source, other); });
    if (!is_given) all.push_back(source);
  }
  all.insert(all.end(), given.begin(), given.end());
  return all;
}

}  // namespace Zelk::Tool
