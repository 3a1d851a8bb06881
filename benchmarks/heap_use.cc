#include "heap_use.h"

#include <algorithm>
#include <cerrno>
#include <malloc.h>

// The C library's own names for what is replaced here. Blocks are counted as large as they are, not
// as large as was asked for. The program has one thread.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace Zelk::Benchmarks {
namespace {

std::size_t live = 0;
std::size_t peak = 0;

void* Counted(void* block) {
  live += malloc_usable_size(block);
  peak = std::max(peak, live);
  return block;
}

}  // namespace

std::size_t LiveBytes() {
  return live;
}

std::size_t PeakBytes() {
  return peak;
}

void ResetPeak() {
  peak = live;
}

}  // namespace Zelk::Benchmarks

extern "C" {

void* malloc(std::size_t size) {
  return Zelk::Benchmarks::Counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) {
  return Zelk::Benchmarks::Counted(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) {
  Zelk::Benchmarks::live -= malloc_usable_size(block);
  return Zelk::Benchmarks::Counted(__libc_realloc(block, size));
}

void* memalign(std::size_t alignment, std::size_t size) {
  return Zelk::Benchmarks::Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  *block = memalign(alignment, size);
  return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) {
  Zelk::Benchmarks::live -= malloc_usable_size(block);
  __libc_free(block);
}
}
