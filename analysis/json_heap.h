#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>

#include <rapidjson/reader.h>

namespace Zelk::Analysis {

/// Memory for RapidJSON, which does not check its own whether there was any.
class JsonHeap {
 public:
  static constexpr bool kNeedFree = true;

  static void* Realloc(void* block, std::size_t /*old_size*/, std::size_t new_size) {
    void* const larger = std::realloc(block, new_size);
    if (larger == nullptr) throw std::bad_alloc();
    return larger;
  }

  static void Free(void* block) { std::free(block); }
};

using JsonReader = rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, JsonHeap>;

}  // namespace Zelk::Analysis
