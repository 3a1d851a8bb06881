#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "fault/allocations.h"

// The C allocation functions, for the whole program: the dynamic linker finds those of a program
// before those of the C library, whose own are still there under other names. operator new and the
// JSON heap end here. Mappings fail like allocations; they are not counted as blocks, since they
// are given back in parts.

namespace {

using Zelk::Testing::NextAllocationFails;
using Zelk::Testing::Obtained;
using Zelk::Testing::Released;

void* NoMemory() {
  errno = ENOMEM;
  return nullptr;
}

}  // namespace

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the C library's names.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) noexcept {
  return NextAllocationFails() ? NoMemory() : Obtained(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  return NextAllocationFails() ? NoMemory() : Obtained(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
  if (block == nullptr) return malloc(size);
  if (size == 0) {
    free(block);
    return nullptr;
  }
  return NextAllocationFails() ? NoMemory() : __libc_realloc(block, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
  return NextAllocationFails() ? NoMemory() : Obtained(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  void* const obtained = memalign(alignment, size);
  if (obtained == nullptr) return ENOMEM;
  *block = obtained;
  return 0;
}

void* mmap(void* address, std::size_t size, int protection, int flags, int descriptor,
           off_t offset) noexcept {
  if (NextAllocationFails()) {
    errno = ENOMEM;
    return MAP_FAILED;
  }
  // The call answers an address as a number.
  // NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<void*>(
      syscall(SYS_mmap, address, size, protection, flags, descriptor, offset));
}

void free(void* block) noexcept {
  __libc_free(Released(block));
}

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

}  // extern "C"
