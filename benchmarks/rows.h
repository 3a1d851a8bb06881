#pragma once

#include "table.h"

namespace Zelk::Benchmarks {

/// How much is measured: a quick run leaves out the largest files and does fewer rounds.
struct Extent {
  bool is_quick;

  int Rounds(int rounds) const { return is_quick ? (rounds + 4) / 5 : rounds; }
};

// Each registers benchmarks that add their rows to `table` when they are run.

/// Loading and releasing, beside the least that a load has to do and beside the obvious way to do
/// it.
void RegisterLoads(const Extent& extent, Table& table);

/// What is in memory after a load and at its peak, each in a process of its own.
void RegisterMemory(const Extent& extent, Table& table);

/// How much is linted in a second, and the memory that it takes.
void RegisterLint(const Extent& extent, Table& table);

/// How long it takes to compare two versions, and the memory beyond that of both.
void RegisterDiff(const Extent& extent, Table& table);

/// Loading beside protobuf's descriptors of the same interfaces.
void RegisterPeer(const Extent& extent, Table& table);

/// Lookups beside those of protobuf's descriptors, how they grow with the number of sources, and
/// lists.
void RegisterLookups(const Extent& extent, Table& table);

/// What a service adds to its container's operation: time, and allocations.
void RegisterServices(const Extent& extent, Table& table);

}  // namespace Zelk::Benchmarks
