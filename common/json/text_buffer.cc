#include "common/json/text_buffer.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <sys/mman.h>

#include "common/json/json_heap.h"

namespace Zelk::Provider::Metadata {
namespace {

/// Smaller texts are on the heap.
constexpr std::size_t kSmall = std::size_t{128} * 1024;

/// The size of a huge page, which the system can map at once.
constexpr std::size_t kHugePage = std::size_t{2} * 1024 * 1024;

constexpr std::size_t AlignUp(std::size_t size, std::size_t alignment) {
  return (size + alignment - 1) / alignment * alignment;
}

/// Returns the size of the part of a block that the text takes.
constexpr std::size_t TextPart(std::size_t size) {
  return AlignUp(size + 1, alignof(std::max_align_t));
}

/// Maps whole huge pages. Pages take no memory until they are used.
char* Map(std::size_t size) {
  void* const mapping = mmap(nullptr, size + kHugePage, PROT_READ | PROT_WRITE,
                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (mapping == MAP_FAILED) throw std::bad_alloc();
  char* const begin = static_cast<char*>(mapping);
  // The system aligns mappings to small pages, so unmap the excess at both ends.
  const std::size_t past = reinterpret_cast<std::uintptr_t>(begin) % kHugePage;
  const std::size_t before = past == 0 ? 0 : kHugePage - past;
  if (before > 0) munmap(begin, before);
  munmap(begin + before + size, kHugePage - before);
  return begin + before;
}

}  // namespace

void TextBuffer::Release::operator()(char* block) const {
  if (mapped_size > 0) {
    munmap(block, mapped_size);
  } else {
    JsonHeap::Free(block);
  }
}

TextBuffer::Block TextBuffer::Allocate(std::size_t size) {
  if (size > kMaxTextSize) throw std::bad_alloc();
  if (size < kSmall) return {static_cast<char*>(JsonHeap::Malloc(size + 1)), Release{0}};
  // Room for twice the size of the text: documents rarely need more, and indented ones much less.
  const std::size_t mapped_size = AlignUp(TextPart(size) + 2 * size, kHugePage);
  Block block(Map(mapped_size), Release{mapped_size});
  // A page fault for each small page would cost as much as the parse. For a file smaller than a
  // quarter of a huge page, clearing a whole one costs more than it saves. Failure is harmless.
  if (size >= kHugePage / 4) madvise(block.get(), mapped_size, MADV_HUGEPAGE);
  return block;
}

TextBuffer::TextBuffer(std::size_t size) : block_(Allocate(size)), size_(size) {
  Truncate(size);
}

TextBuffer::TextBuffer(std::string_view text) : TextBuffer(text.size()) {
  if (!text.empty()) std::memcpy(Data(), text.data(), text.size());
}

void TextBuffer::Truncate(std::size_t size) {
  size_ = size;
  block_.get()[size] = '\0';
}

void* TextBuffer::Room() {
  return block_.get() + TextPart(size_);
}

std::size_t TextBuffer::RoomSize() const {
  const std::size_t mapped_size = block_.get_deleter().mapped_size;
  return mapped_size == 0 ? 0 : mapped_size - TextPart(size_);
}

}  // namespace Zelk::Provider::Metadata
