#include "common/sources/source_file.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Zelk::Provider::Metadata {
namespace {

class FileDescriptor {
 public:
  // Non-blocking: opening a pipe would wait for a writer.
  explicit FileDescriptor(const std::string& path)
      : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}

  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  ~FileDescriptor() {
    if (IsOpen()) close(descriptor_);
  }

  bool IsOpen() const { return descriptor_ >= 0; }

  int Get() const { return descriptor_; }

 private:
  int descriptor_;
};

/// Reads up to `size` bytes and returns their number; 0 at the end of the file and on an error.
std::size_t ReadSome(int descriptor, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

boost::optional<TextBuffer> ReadToEnd(int descriptor, std::uintmax_t expected_size,
                                      bool& is_too_large) {
  is_too_large = expected_size > kMaxTextSize;
  if (is_too_large) return boost::none;
  TextBuffer text(static_cast<std::size_t>(expected_size));
  std::size_t filled = 0;
  // Asks for one byte more than expected, in the place of the zero byte, so that a file of the
  // expected size needs two reads only.
  while (const auto count = ReadSome(descriptor, text.Data() + filled, text.Size() + 1 - filled)) {
    filled += count;
    is_too_large = filled > kMaxTextSize;
    if (is_too_large) return boost::none;
    if (filled > text.Size()) {  // the file grew meanwhile
      TextBuffer larger(std::min(2 * filled, kMaxTextSize));
      std::memcpy(larger.Data(), text.Data(), filled);
      text = std::move(larger);
    }
  }
  text.Truncate(filled);
  return text;
}

}  // namespace

boost::optional<TextBuffer> ReadSourceFile(const std::string& path, bool& is_too_large) {
  is_too_large = false;
  // Intended(zero-byte-in-path): the system would open the file named by the part before it.
  if (path.find('\0') != std::string::npos) return boost::none;
  const FileDescriptor file(path);

  struct stat status {};

  if (!file.IsOpen() || fstat(file.Get(), &status) != 0) return boost::none;
  // Intended(folder-is-empty-file): a folder can be opened, and reading it yields nothing.
  if (S_ISDIR(status.st_mode)) return TextBuffer(0);
  // Intended(special-file-not-read): reading a pipe, a device or a socket might block or never end.
  if (!S_ISREG(status.st_mode)) return boost::none;
  return ReadToEnd(file.Get(), static_cast<std::uintmax_t>(status.st_size), is_too_large);
}

}  // namespace Zelk::Provider::Metadata
