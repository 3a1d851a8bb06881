#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "domain_id.h"

namespace Zelk::Benchmarks {

/// One way in which a file can be large.
struct Shape {
  const char* name;
  DomainId domain;

  /// Whether time and memory are to grow no faster than the file.
  bool is_linear;

  /// The sizes of four files, each four times that of the one before, in whatever `make` takes.
  std::size_t smallest;

  /// A valid file of about that size.
  std::string (*make)(std::size_t size);
};

const std::vector<Shape>& Shapes();

}  // namespace Zelk::Benchmarks
