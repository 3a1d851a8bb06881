#include "shell/history.h"

#include <cstdlib>
#include <deque>
#include <fcntl.h>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Zelk::Tool::Shell {
namespace {

namespace fs = std::filesystem;

/// The first line of each history, by which the editor knows one.
constexpr char kCookie[] = "_HiStOrY_V2_";

/// Empty unless it is the absolute path that it ought to be.
fs::path FolderFrom(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || *value != '/') return {};
  return value;
}

/// Empty where there is no folder for it. The folder is made if need be.
std::string FindPath() {
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

/// As the editor decodes it.
std::string Encoded(const std::string& line) {
  std::string encoded;
  for (const char character : line) {
    const bool is_plain = character > ' ' && character <= '~' && character != '\\';
    const auto byte = static_cast<unsigned char>(character);
    encoded += is_plain ? std::string(1, character) : fmt::format("\\{:03o}", byte);
  }
  return encoded;
}

bool Write(int file, const std::string& text) {
  return write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

/// Keeps other sessions away from the file. Where that is not possible, it is done without.
class Lock {
 public:
  explicit Lock(int file) : file_(file) { flock(file_, LOCK_EX); }

  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  ~Lock() { flock(file_, LOCK_UN); }

 private:
  int file_;
};

}  // namespace

HistoryFile::HistoryFile() : path_(FindPath()) {
  // Anything but a file must not be waited for.
  constexpr int kFlags = O_RDWR | O_APPEND | O_CREAT | O_NONBLOCK | O_CLOEXEC;
  if (!path_.empty()) file_ = open(path_.c_str(), kFlags, S_IRUSR | S_IWUSR);
  if (!Prepare()) path_.clear();
}

HistoryFile::~HistoryFile() {
  if (file_ >= 0) close(file_);
}

bool HistoryFile::Prepare() {
  struct stat facts {};

  if (fstat(file_, &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
  const Lock lock(file_);
  std::ifstream in(path_, std::ios::binary);
  std::string line;
  if (!std::getline(in, line)) return Write(file_, std::string(kCookie) + '\n');
  if (line != kCookie) return false;
  std::deque<std::string> newest;
  bool has_too_many = false;
  while (std::getline(in, line)) {
    newest.push_back(line);
    if (newest.size() <= kHistorySize) continue;
    newest.pop_front();
    has_too_many = true;
  }
  if (!has_too_many) return true;
  std::string text = std::string(kCookie) + '\n';
  for (const std::string& kept : newest) text += kept + '\n';
  return ftruncate(file_, 0) == 0 && Write(file_, text);
}

void HistoryFile::Append(const std::string& line) {
  if (path_.empty()) return;
  const Lock lock(file_);
  Write(file_, Encoded(line) + '\n');
}

}  // namespace Zelk::Tool::Shell
