#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <string_view>

#include <rapidjson/rapidjson.h>

namespace Zelk::Provider::Metadata {

/// The most bytes that a text may have: as many as RapidJSON can count.
inline constexpr std::size_t kMaxTextSize = std::numeric_limits<rapidjson::SizeType>::max();

/// The text of a source's file, in memory that a parse may write over, with room after it for the
/// values of its document. A zero byte follows the text.
///
/// A text that is not small is mapped apart from the heap: both go back to the system when the load
/// is over, and leave no hole among the records, which are made while it lasts and stay.
class TextBuffer {
 public:
  /// A text of `size` bytes, zero or still to be written. Throws std::bad_alloc for more than
  /// kMaxTextSize bytes and when there is no memory.
  explicit TextBuffer(std::size_t size);

  /// A copy of `text`; the same errors.
  explicit TextBuffer(std::string_view text);

  char* Data() { return block_.get(); }

  std::size_t Size() const { return size_; }

  std::string_view View() const { return {block_.get(), size_}; }

  /// Lets the text end after its first `size` bytes.
  void Truncate(std::size_t size);

  /// Memory that is aligned for anything and costs nothing until it is used.
  void* Room();

  /// Zero for a small text, whose document is better off on the heap.
  std::size_t RoomSize() const;

 private:
  /// Gives a block back: to the system what is mapped, to the heap what is not.
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
