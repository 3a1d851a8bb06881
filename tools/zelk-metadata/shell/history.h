#pragma once

#include <cstddef>
#include <string>

namespace Zelk::Tool::Shell {

/// How many lines of earlier sessions are kept.
constexpr std::size_t kHistorySize = 1000;

/// The file that keeps what was typed, in the folder for what programs remember and in the format
/// of the line editor. It gets each line as soon as there is one, so that no end of a session loses
/// any, and sessions at the same time share it.
class HistoryFile {
 public:
  /// Makes the file if need be, and drops the oldest of too many lines. A file that is not a
  /// history is left alone.
  HistoryFile();
  HistoryFile(const HistoryFile&) = delete;
  HistoryFile& operator=(const HistoryFile&) = delete;
  ~HistoryFile();

  /// Empty if no history can be kept, which is not an error.
  const std::string& Path() const { return path_; }

  void Append(const std::string& line);

 private:
  /// False for a file that is not a history.
  bool Prepare();

  std::string path_;
  int file_ = -1;
};

}  // namespace Zelk::Tool::Shell
