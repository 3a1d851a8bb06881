#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>

#include <rapidjson/rapidjson.h>

namespace Zelk::Provider::Metadata {

/// The last offset that RapidJSON can count.
inline constexpr rapidjson::SizeType kLastOffset = std::numeric_limits<rapidjson::SizeType>::max();

/// The maximal size of a text. Where addresses have 32 bits, the text and its room must fit into
/// them.
inline constexpr std::size_t kMaxTextSize = std::min<std::size_t>(kLastOffset, SIZE_MAX / 8);

/// The text of a source's file, in memory that a parse may overwrite, with room after it for the
/// values of its document. A zero byte follows the text.
///
/// Large texts are mapped rather than allocated, so freeing them after the load leaves no hole in
/// the heap between the records, which live longer.
class TextBuffer {
 public:
  /// Makes a text of `size` bytes for the caller to write. Throws std::bad_alloc for more than
  /// kMaxTextSize bytes and when memory runs out.
  explicit TextBuffer(std::size_t size);

  /// Makes a copy of `text`. Throws as above.
  explicit TextBuffer(std::string_view text);

  char* Data() { return block_.get(); }

  std::size_t Size() const { return size_; }

  std::string_view View() const { return {block_.get(), size_}; }

  /// Shortens the text to its first `size` bytes.
  void Truncate(std::size_t size);

  /// Returns the room after the text. It is aligned for any type and takes no memory until used.
  void* Room();

  /// Returns the size of the room; 0 for a small text, whose document is allocated on the heap.
  std::size_t RoomSize() const;

 private:
  /// Unmaps or frees a block.
  struct Release {
    std::size_t mapped_size;

    void operator()(char* block) const;
  };

  using Block = std::unique_ptr<char, Release>;

  static Block Allocate(std::size_t size);

  Block block_;
  std::size_t size_;
};

}  // namespace Zelk::Provider::Metadata
