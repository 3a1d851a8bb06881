#pragma once

#include <cstdint>
#include <cstdio>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace Zelk::Tool {

/// The most bytes that a file may have to be read by the library, and so by the tool.
inline constexpr std::uint64_t kMaxFileSize = 4294967295;

struct CopiedInput;

/// A private copy of what a stream or a pipe holds, for services that load from paths. It has no
/// name in any folder, so nothing is left behind however the process ends.
class InputFile {
 public:
  /// Reads the stream to its end, but no more than `limit` bytes.
  static CopiedInput Copy(std::istream& in, std::uint64_t limit = kMaxFileSize);

  /// The same for a pipe or a device that has a name. Waits for what it holds.
  static CopiedInput CopyOf(const std::string& path);

  /// Holds the text in memory.
  static CopiedInput Holding(std::string_view text);

  explicit InputFile(std::FILE* file);
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  /// Can be opened as long as this object lives.
  std::string Path() const;

 private:
  std::FILE* file_;
};

/// A copy, or null and why it could not be made.
struct CopiedInput {
  std::shared_ptr<const InputFile> file;
  std::string failure;
};

/// Why a file cannot be read, in the system's words; empty if it can. Opens it, so not for pipes.
std::string WhyUnreadable(const std::string& path);

}  // namespace Zelk::Tool
