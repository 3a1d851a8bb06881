#pragma once

#include <cstdio>
#include <iosfwd>
#include <memory>
#include <string>

namespace Zelk::Tool {

/// A private copy of what a stream holds, for services that load from paths. It has no name in any
/// folder, so nothing is left behind however the process ends.
class InputFile {
 public:
  /// Reads the stream to its end. Null when there is no room for the copy.
  static std::shared_ptr<const InputFile> Copy(std::istream& in);

  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  /// Can be opened as long as this object lives.
  std::string Path() const;

 private:
  explicit InputFile(std::FILE* file);

  std::FILE* file_;
};

}  // namespace Zelk::Tool
