#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "fault/allocations.h"

namespace Zelk::Testing {

/// A call that is to bear the failure of any of its allocations. It must let go of what it was
/// answered, and must not allocate itself: the library's allocations are what is meant to fail.
struct FaultyCall {
  std::string name;
  std::function<void()> run;
  /// Takes back what the call changed; empty for one that changes nothing.
  std::function<void()> undo;
  /// The states that a failure may leave besides the one before the call, for a call that makes
  /// several changes one after another. Each must be left by some failure.
  std::vector<std::string> between = {};
};

/// Fails every single allocation of the call, first each alone and then each with all later ones,
/// until a run needs no more. Expects that each failure leaves the call as std::bad_alloc, leaves
/// `state` as it was before the call or in one of the states between, leaks nothing, and does not
/// keep the same call from succeeding afterwards.
/// Returns the number of runs that were made to fail.
std::size_t FailEveryAllocation(const FaultyCall& call, const std::function<std::string()>& state);

/// Expects that `run` leaks nothing.
void ExpectNoLeak(const std::string& name, const std::function<void()>& run);

/// Adds to the number of failures that is printed when all tests have run.
void AddToTotal(std::size_t failures);

}  // namespace Zelk::Testing
