#include "stateful/disk.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Zelk::Fuzzing {
namespace {

/// A run that did not get its files would test something else.
void Check(bool done, const std::string& path) {
  if (done) return;
  std::perror(path.c_str());
  std::abort();
}

void WriteText(const std::string& path, const std::string& text) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  Check(file >= 0, path);
  Check(write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()), path);
  close(file);
}

void RemoveAt(const std::string& path, const File& file) {
  if (file.kind == File::Kind::kNothing) return;
  Check((file.kind == File::Kind::kFolder ? rmdir(path.c_str()) : unlink(path.c_str())) == 0, path);
}

void Make(const File& file, const std::string& path) {
  switch (file.kind) {
    case File::Kind::kNothing:
      return;
    case File::Kind::kFolder:
      return Check(mkdir(path.c_str(), 0700) == 0, path);
    case File::Kind::kPipe:
      return Check(mkfifo(path.c_str(), 0600) == 0, path);
    case File::Kind::kText:
      return WriteText(path, file.text);
    case File::Kind::kUnreadableText:
      WriteText(path, file.text);
      Check(chmod(path.c_str(), 0) == 0, path);
  }
}

}  // namespace

std::string Disk::Path(std::size_t index) const {
  return folder_.Path("f" + std::to_string(index));
}

const File& Disk::Find(const std::string& path) const {
  static const File kNothing;
  for (std::size_t index = 0; index < kFiles; ++index) {
    if (path == Path(index)) return files_[index];
  }
  return kNothing;
}

void Disk::Put(std::size_t index, File file) {
  const std::string path = Path(index);
  // A text over a text is written in place, which is quicker than a new file.
  const bool in_place = file.kind == File::Kind::kText && files_[index].kind == File::Kind::kText;
  if (!in_place) RemoveAt(path, files_[index]);
  Make(file, path);
  files_[index] = std::move(file);
}

void Disk::Clear() {
  for (std::size_t index = 0; index < kFiles; ++index) Put(index, File());
}

void Disk::Remove() {
  Clear();
  rmdir(folder_.Path("").c_str());
}

}  // namespace Zelk::Fuzzing
