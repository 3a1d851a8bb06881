#pragma once

#include <string>
#include <vector>

#include "stateful/disk.h"

namespace Zelk::Fuzzing {

/// An answer that is not the one foretold.
struct Difference {
  std::string domain;
  std::vector<std::string> history;
  std::string question;
  std::string expected;
  std::string got;
};

/// Prints everything that is needed to understand it, clears the disk and aborts.
[[noreturn]] void EndWithDifference(const Difference& difference, Disk& disk);

}  // namespace Zelk::Fuzzing
