#include "host/input_file.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <istream>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "host/interrupt.h"

namespace Zelk::Tool {
namespace {

/// Returns the number of bytes read, 0 at the end and -1 on an error.
using Read = std::function<ssize_t(char* buffer, std::size_t size)>;

std::string SystemText(int error) {
  return std::generic_category().message(error);
}

/// Of the system's last error.
std::string NotCopied() {
  return "cannot be copied: " + SystemText(errno);
}

CopiedInput CopyFrom(const Read& read, std::uint64_t limit, std::FILE* file) {
  if (file == nullptr) return {nullptr, NotCopied()};
  auto copy = std::make_shared<const InputFile>(file);
  std::setvbuf(file, nullptr, _IONBF, 0);
  std::array<char, 65536> chunk{};
  for (std::uint64_t total = 0;;) {
    const ssize_t count = read(chunk.data(), chunk.size());
    if (count < 0) return {nullptr, SystemText(errno)};
    if (count == 0) return {std::move(copy), ""};
    const auto size = static_cast<std::size_t>(count);
    total += size;
    if (total > limit) return {nullptr, "is larger than a file may be"};
    if (std::fwrite(chunk.data(), 1, size, file) != size) return {nullptr, NotCopied()};
  }
}

/// What a user may end by Ctrl-C while it waits.
ssize_t ReadSome(int descriptor, char* buffer, std::size_t size) {
  for (;;) {
    const ssize_t count = read(descriptor, buffer, size);
    if (count >= 0 || errno != EINTR || IsInterrupted()) return count;
  }
}

}  // namespace

CopiedInput InputFile::Copy(std::istream& in, std::uint64_t limit) {
  const Read read = [&in](char* buffer, std::size_t size) {
    in.read(buffer, static_cast<std::streamsize>(size));
    return static_cast<ssize_t>(in.gcount());
  };
  return CopyFrom(read, limit, std::tmpfile());
}

CopiedInput InputFile::CopyOf(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
  if (descriptor < 0) return {nullptr, SystemText(errno)};
  const Read read = [descriptor](char* buffer, std::size_t size) {
    return ReadSome(descriptor, buffer, size);
  };
  CopiedInput copied = CopyFrom(read, kMaxFileSize, std::tmpfile());
  close(descriptor);
  return copied;
}

CopiedInput InputFile::Holding(std::string_view text) {
  const Read read = [&text](char* buffer, std::size_t size) {
    const std::size_t count = text.copy(buffer, size);
    text.remove_prefix(count);
    return static_cast<ssize_t>(count);
  };
  return CopyFrom(read, kMaxFileSize, fdopen(memfd_create("copy", MFD_CLOEXEC), "w+"));
}

InputFile::InputFile(std::FILE* file) : file_(file) {}

InputFile::~InputFile() {
  std::fclose(file_);
}

std::string InputFile::Path() const {
  return "/dev/fd/" + std::to_string(fileno(file_));
}

std::string WhyUnreadable(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) return SystemText(errno);

  struct stat status {};

  const bool is_folder = fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
  close(descriptor);
  return is_folder ? SystemText(EISDIR) : "";
}

}  // namespace Zelk::Tool
