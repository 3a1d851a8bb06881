#pragma once

#include <cstddef>

namespace Zelk::Provider::Metadata {

/// The heap under a JSON document. RapidJSON writes through whatever its allocator returns, so
/// memory that is not to be had must end in std::bad_alloc here and never in a null pointer.
class JsonHeap {
 public:
  static const bool kNeedFree = true;

  static void* Malloc(std::size_t size);
  static void* Realloc(void* block, std::size_t old_size, std::size_t new_size);
  static void Free(void* block);
};

}  // namespace Zelk::Provider::Metadata
