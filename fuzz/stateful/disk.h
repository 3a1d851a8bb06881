#pragma once

#include <array>
#include <cstddef>
#include <string>

#include <boost/optional.hpp>

#include "stateful/json_tree.h"
#include "support/temp_folder.h"

namespace Zelk::Fuzzing {

/// What is at a path.
struct File {
  enum class Kind { kNothing, kFolder, kPipe, kText, kUnreadableText };

  Kind kind = Kind::kNothing;
  std::string text;
  boost::optional<Json> document;  // what the text says, unless that must be read from it
};

/// A few paths, with what the test put there.
class Disk {
 public:
  static constexpr std::size_t kFiles = 4;

  std::string Path(std::size_t index) const;

  const File& At(std::size_t index) const { return files_[index]; }

  /// What is at a path that may be any text.
  const File& Find(const std::string& path) const;

  void Put(std::size_t index, File file);
  void Clear();

  /// Takes the folder away, for a process that ends without its destructors.
  void Remove();

 private:
  Testing::TempFolder folder_;
  std::array<File, kFiles> files_;
};

}  // namespace Zelk::Fuzzing
