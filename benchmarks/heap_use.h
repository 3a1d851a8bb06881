#pragma once

#include <cstddef>

// What the program has on its heap, counted by its own malloc and relatives. What it maps for
// itself counts as well, and whole, whether it is touched or not.

namespace Zelk::Benchmarks {

/// The bytes that are allocated now.
std::size_t LiveBytes();

/// The most bytes that were allocated at the same time since the last ResetPeak().
std::size_t PeakBytes();

void ResetPeak();

/// How often anything was allocated so far.
std::size_t Allocations();

}  // namespace Zelk::Benchmarks
