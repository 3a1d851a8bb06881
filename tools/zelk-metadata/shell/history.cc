#include "shell/history.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

/// Empty unless it is the absolute path that it ought to be.
fs::path FolderFrom(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || *value != '/') return {};
  return value;
}

}  // namespace

std::string HistoryFile() {
  fs::path state = FolderFrom("XDG_STATE_HOME");
  if (state.empty()) {
    const fs::path home = FolderFrom("HOME");
    if (home.empty()) return "";
    state = home / ".local" / "state";
  }
  const fs::path folder = state / "zelk-metadata";
  std::error_code error;
  fs::create_directories(folder, error);
  return error ? "" : (folder / "history").string();
}

}  // namespace Zelk::Tool
