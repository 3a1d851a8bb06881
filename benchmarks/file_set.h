#pragma once

#include <cstddef>
#include <string>

#include "corpus.h"

namespace Zelk::Benchmarks {

constexpr std::size_t kMegabyte = 1'000'000;

/// What rows are about: some files of one size.
struct FileSet {
  DomainId domain;
  std::size_t files;
  std::size_t bytes;
  Layout layout;
};

/// Such as "CLI, 1 MB, compact".
std::string NameOf(const FileSet& set);

Corpus MakeCorpus(const FileSet& set);

}  // namespace Zelk::Benchmarks
