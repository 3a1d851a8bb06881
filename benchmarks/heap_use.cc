#include "heap_use.h"

#include <algorithm>
#include <cerrno>
#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

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
std::size_t allocations = 0;

void Count(std::size_t bytes) {
  live += bytes;
  peak = std::max(peak, live);
  ++allocations;
}

void* Counted(void* block) {
  Count(malloc_usable_size(block));
  return block;
}

/// The C library's malloc does not come here when it maps.
void* Mapped(long address, std::size_t size) {
  if (address == -1) return MAP_FAILED;
  Count(size);
  // The one way from what a system call answers to an address.
  return reinterpret_cast<void*>(address);  // NOLINT(performance-no-int-to-ptr)
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

std::size_t Allocations() {
  return allocations;
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

void* mmap(void* address, std::size_t size, int protection, int flags, int file,
           off_t offset) noexcept {
  return Zelk::Benchmarks::Mapped(syscall(SYS_mmap, address, size, protection, flags, file, offset),
                                  size);
}

void* mmap64(void* address, std::size_t size, int protection, int flags, int file,
             off64_t offset) noexcept {
  return mmap(address, size, protection, flags, file, offset);
}

int munmap(void* address, std::size_t size) noexcept {
  Zelk::Benchmarks::live -= size;
  return static_cast<int>(syscall(SYS_munmap, address, size));
}
}
