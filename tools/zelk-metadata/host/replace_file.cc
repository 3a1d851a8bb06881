#include "host/replace_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Zelk::Tool {
namespace {

constexpr mode_t kPermissions = 07777;
constexpr mode_t kNewFile = 0666;

std::string SystemText(int error) {
  return error == 0 ? "" : std::generic_category().message(error);
}

/// Returns the number of the system's error; 0 if all was written.
int WriteAndClose(int descriptor, std::string_view text) {
  int error = 0;
  while (!text.empty() && error == 0) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0) {
      error = errno;
    } else {
      text.remove_prefix(static_cast<std::size_t>(count));
    }
  }
  return close(descriptor) != 0 && error == 0 ? errno : error;
}

// These return the reason of a failure; empty if all was written.

std::string WriteInPlace(const std::string& path, std::string_view text) {
  const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kNewFile);
  return SystemText(descriptor < 0 ? errno : WriteAndClose(descriptor, text));
}

std::string WriteBesideAndRename(const std::string& path, mode_t permissions,
                                 std::string_view text) {
  std::error_code ignored;
  const std::string target = std::filesystem::canonical(path, ignored).string();
  std::string temporary = target + ".XXXXXX";
  const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
  if (descriptor < 0) return "a file next to it cannot be created: " + SystemText(errno);
  int error = WriteAndClose(descriptor, text);
  const bool is_replaced = error == 0 && access(target.c_str(), W_OK) == 0 &&
                           chmod(temporary.c_str(), permissions) == 0 &&
                           std::rename(temporary.c_str(), target.c_str()) == 0;
  if (is_replaced) return "";
  if (error == 0) error = errno;
  unlink(temporary.c_str());
  return SystemText(error);
}

}  // namespace

std::string ReplaceFile(const std::string& path, std::string_view text) {
  struct stat old {};

  // A device has no text to lose. A file with two names, or of another owner, would not be the same
  // file any more.
  const bool is_replaced = stat(path.c_str(), &old) == 0 && S_ISREG(old.st_mode) &&
                           old.st_nlink == 1 && old.st_uid == geteuid();
  const std::string reason = is_replaced
                                 ? WriteBesideAndRename(path, old.st_mode & kPermissions, text)
                                 : WriteInPlace(path, text);
  return reason.empty() ? "" : path + ": could not be written: " + reason;
}

}  // namespace Zelk::Tool
