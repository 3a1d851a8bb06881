#include "common/source_file.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

#include "common/json_document.h"

namespace Zelk::Provider::Metadata {
namespace {

class FileDescriptor {
 public:
  // Non-blocking: opening a pipe nobody writes to would wait for a writer.
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

/// Reads up to `size` bytes; 0 at the end of the file, which an unreadable file is at.
std::size_t ReadSome(int descriptor, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

std::string ReadToEnd(int descriptor, std::size_t expected_size) {
  if (expected_size > kMaxTextSize) throw std::bad_alloc();
  // One byte more than expected, so that a file of that size ends the loop on its second read.
  std::string bytes(expected_size + 1, '\0');
  std::size_t filled = 0;
  while (const auto count = ReadSome(descriptor, &bytes[filled], bytes.size() - filled)) {
    filled += count;
    if (filled > kMaxTextSize) throw std::bad_alloc();  // it grows while it is read
    if (filled == bytes.size()) {
      bytes.resize(bytes.size() * 2);
    }
  }
  bytes.resize(filled);
  return bytes;
}

}  // namespace

boost::optional<std::string> ReadSourceFile(const std::string& path) {
  // The system would silently look at the part before a zero byte.
  if (path.find('\0') != std::string::npos) return boost::none;
  const FileDescriptor file(path);

  struct stat status {};

  if (!file.IsOpen() || fstat(file.Get(), &status) != 0) return boost::none;
  if (S_ISDIR(status.st_mode)) return std::string();
  if (!S_ISREG(status.st_mode)) return boost::none;
  return ReadToEnd(file.Get(), static_cast<std::size_t>(status.st_size));
}

}  // namespace Zelk::Provider::Metadata
