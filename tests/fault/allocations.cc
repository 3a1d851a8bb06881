#include "fault/allocations.h"

#include <atomic>

namespace Zelk::Testing {
namespace {

struct Plan {
  bool active;
  bool lasting;
  bool failed;
  /// How many allocations go well before the one that fails.
  std::size_t left;
};

// Without constructors: the back ends use both before and after everything else in the program.
thread_local Plan plan{};
std::atomic<std::ptrdiff_t> live_blocks{0};

}  // namespace

FailingAllocations::FailingAllocations(std::size_t nth, Shortage shortage) {
  plan = {true, shortage == Shortage::kLasting, false, nth - 1};
}

FailingAllocations::~FailingAllocations() {
  plan.active = false;
}

bool FailingAllocations::Failed() {
  return plan.failed;
}

std::ptrdiff_t LiveBlocks() {
  return live_blocks;
}

bool NextAllocationFails() noexcept {
  if (!plan.active) return false;
  if (plan.failed) return plan.lasting;
  if (plan.left > 0) {
    --plan.left;
    return false;
  }
  plan.failed = true;
  return true;
}

void* Obtained(void* block) noexcept {
  if (block != nullptr) ++live_blocks;
  return block;
}

void* Released(void* block) noexcept {
  if (block != nullptr) --live_blocks;
  return block;
}

}  // namespace Zelk::Testing
