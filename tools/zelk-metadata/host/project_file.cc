#include "host/project_file.h"

#include <filesystem>
#include <system_error>

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

constexpr char kName[] = ".zelk-metadata.json";
constexpr std::uintmax_t kMaxBytes = 1U << 20U;

}  // namespace

std::string FindProjectFile(const std::string& given) {
  if (!given.empty()) return given;
  std::error_code error;
  fs::path folder;
  for (;;) {
    // A link that leads nowhere is there, too, and then reported.
    if (fs::symlink_status(folder / kName, error).type() != fs::file_type::not_found) {
      return (folder / kName).string();
    }
    const fs::path above = folder / "..";
    const fs::path here = folder.empty() ? fs::path(".") : folder;
    if (fs::equivalent(above, here, error) || error) return "";
    folder = above;
  }
}

void ReadProjectFile(const std::string& path, std::vector<std::string>& complaints,
                     const SettingsTaker& take) {
  if (!path.empty()) ReadSettings(path, complaints, take, kMaxBytes);
}

}  // namespace Zelk::Tool
