#pragma once

#include <cstddef>

namespace Zelk::Provider::Metadata {

/// The allocator of a JSON document. RapidJSON does not check for null, so a failed allocation must
/// throw std::bad_alloc.
class JsonHeap {
 public:
  static const bool kNeedFree = true;

  static void* Malloc(std::size_t size);
  static void* Realloc(void* block, std::size_t old_size, std::size_t new_size);
  static void Free(void* block);
};

}  // namespace Zelk::Provider::Metadata
