#include "common/json/json_heap.h"

#include <cstdlib>
#include <new>

namespace Zelk::Provider::Metadata {
namespace {

void* OrBadAlloc(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* JsonHeap::Malloc(std::size_t size) {
  return size == 0 ? nullptr : OrBadAlloc(std::malloc(size));
}

void* JsonHeap::Realloc(void* block, std::size_t /*old_size*/, std::size_t new_size) {
  if (new_size == 0) {
    std::free(block);
    return nullptr;
  }
  return OrBadAlloc(std::realloc(block, new_size));
}

void JsonHeap::Free(void* block) {
  std::free(block);
}

}  // namespace Zelk::Provider::Metadata
