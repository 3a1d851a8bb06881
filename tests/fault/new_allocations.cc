#include <cstddef>
#include <cstdlib>
#include <new>

#include "fault/allocations.h"

// The C++ allocation functions, for the whole program. They take from malloc, which a sanitizer
// watches. What asks malloc itself is not failed here.

namespace {

using Zelk::Testing::NextAllocationFails;
using Zelk::Testing::Obtained;
using Zelk::Testing::Released;

void* TryObtain(std::size_t size) noexcept {
  return NextAllocationFails() ? nullptr : Obtained(std::malloc(size));
}

void* TryObtain(std::size_t size, std::align_val_t alignment) noexcept {
  const auto unit = static_cast<std::size_t>(alignment);
  return NextAllocationFails()
             ? nullptr
             : Obtained(std::aligned_alloc(unit, (size + unit - 1) / unit * unit));
}

void* OrThrow(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Release(void* block) noexcept {
  std::free(Released(block));
}

}  // namespace

void* operator new(std::size_t size) {
  return OrThrow(TryObtain(size));
}

void* operator new[](std::size_t size) {
  return OrThrow(TryObtain(size));
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return TryObtain(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return TryObtain(size);
}

void* operator new(std::size_t size, std::align_val_t alignment) {
  return OrThrow(TryObtain(size, alignment));
}

void* operator new[](std::size_t size, std::align_val_t alignment) {
  return OrThrow(TryObtain(size, alignment));
}

void operator delete(void* block) noexcept {
  Release(block);
}

void operator delete[](void* block) noexcept {
  Release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  Release(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
  Release(block);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
  Release(block);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
  Release(block);
}

void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
  Release(block);
}

void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
  Release(block);
}

void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Release(block);
}

void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
  Release(block);
}
