#pragma once

#include <cstddef>

// Memory that runs out when a test wants it to. The logic is in allocations.cc; what it is asked by
// is one of two back ends, chosen when the build is configured:
//
// - malloc_allocations.cc defines malloc and its relatives for the whole program, so the libraries
//   are tested as they are shipped, whichever way they ask for memory;
// - new_allocations.cc defines operator new, for programs in which malloc belongs to a sanitizer.

namespace Zelk::Testing {

enum class Shortage {
  /// One allocation fails; there is memory again for the next.
  kOnce,
  /// From then on every allocation fails.
  kLasting,
};

/// While it lives, the `nth` allocation of this thread fails, counted from 1.
class FailingAllocations {
 public:
  FailingAllocations(std::size_t nth, Shortage shortage);
  FailingAllocations(const FailingAllocations&) = delete;
  FailingAllocations& operator=(const FailingAllocations&) = delete;
  ~FailingAllocations();

  /// Whether the last one on this thread made anything fail.
  static bool Failed();
};

/// How many blocks of memory the program holds.
std::ptrdiff_t LiveBlocks();

// For the back ends. None of these allocates.

/// Counts one allocation; true when it is to fail.
bool NextAllocationFails() noexcept;

/// Counts a block that was obtained, if it was; returns it.
void* Obtained(void* block) noexcept;

/// Counts a block, if it is one, that is about to be released; returns it.
void* Released(void* block) noexcept;

}  // namespace Zelk::Testing
