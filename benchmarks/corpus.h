#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "metadata_file.h"
#include "tests/support/temp_folder.h"

namespace Zelk::Benchmarks {

/// Files that lie in a temporary folder, and so in the page cache, as long as this lives.
class Corpus {
 public:
  /// `files` files of `first.bytes` each, numbered from `first.number` on.
  Corpus(const FileSpec& first, std::size_t files);

  const std::vector<std::string>& Paths() const { return paths_; }

  std::size_t Bytes() const { return bytes_; }

 private:
  Testing::TempFolder folder_;
  std::vector<std::string> paths_;
  std::size_t bytes_ = 0;
};

}  // namespace Zelk::Benchmarks
