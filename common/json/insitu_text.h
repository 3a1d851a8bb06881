#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <endian.h>

#include <rapidjson/document.h>

#include "common/json/text_buffer.h"

// How RapidJSON reads a text that it may overwrite: a decoded string replaces its own JSON text,
// which is never shorter. A string without escapes is not copied at all.

namespace Zelk::Provider::Metadata {

/// RapidJSON's UTF-8 under a name of our own, so that the transcoder below applies to us only.
struct JsonEncoding : rapidjson::UTF8<> {};

/// A RapidJSON stream over such a text. It never writes beyond the position that it reads. The zero
/// byte after the text ends it; RapidJSON does not read past one.
class InsituText {
 public:
  using Ch = char;

  explicit InsituText(TextBuffer& text)
      : begin_(text.Data()), end_(begin_ + text.Size()), source_(begin_), target_(begin_) {}

  Ch Peek() const { return *source_; }

  Ch Take() { return *source_++; }

  std::size_t Tell() const { return static_cast<std::size_t>(source_ - begin_); }

  Ch* PutBegin() {
    target_ = source_;
    return target_;
  }

  void Put(Ch character) { *target_++ = character; }

  std::size_t PutEnd(Ch* begin) const { return static_cast<std::size_t>(target_ - begin); }

  void SkipWhitespace() {
    while (*source_ == ' ' || *source_ == '\n' || *source_ == '\r' || *source_ == '\t') ++source_;
  }

  /// Moves the characters up to the next one that is special in a JSON string: a quotation mark, a
  /// backslash or a control character (the zero byte at the end is one).
  void PutPlainCharacters() {
    const char* const special = FindSpecial();
    const auto count = static_cast<std::size_t>(special - source_);
    if (target_ != source_) std::memmove(target_, source_, count);
    target_ += count;
    source_ += count;
  }

 private:
  using Block = std::uint64_t;

  static constexpr Block kOnes = 0x0101010101010101;

  /// Sets the highest bit of each byte of the block that is less than `bound`, which is at most
  /// 128. Only the lowest mark is reliable: above it, bytes may be marked wrongly.
  static constexpr Block MarkBelow(Block block, Block bound) {
    return (block - kOnes * bound) & ~block & (kOnes * 0x80);
  }

  static constexpr Block MarkSpecial(Block block) {
    return MarkBelow(block, ' ') | MarkBelow(block ^ (kOnes * '"'), 1) |
           MarkBelow(block ^ (kOnes * '\\'), 1);
  }

  static bool IsSpecial(char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '"' || character == '\\';
  }

  const char* FindSpecial() const {
    const char* position = source_;
    // Eight characters at a time: most of a file is documentation.
    for (Block block = 0; end_ - position >= static_cast<std::ptrdiff_t>(sizeof block);
         position += sizeof block) {
      std::memcpy(&block, position, sizeof block);
      const Block marks = MarkSpecial(le64toh(block));
      if (marks != 0) return position + __builtin_ctzll(marks) / 8;
    }
    while (!IsSpecial(*position)) ++position;
    return position;
  }

  char* begin_;
  char* end_;
  char* source_;
  char* target_;
};

/// RapidJSON calls this between tokens. Its own version copies the stream each time.
inline void SkipWhitespace(InsituText& text) {
  text.SkipWhitespace();
}

}  // namespace Zelk::Provider::Metadata

namespace rapidjson {

/// Lets the parser keep the stream in registers.
template <>
struct StreamTraits<Zelk::Provider::Metadata::InsituText> {
  enum { copyOptimization = 1 };
};

/// Moves several characters at a time; RapidJSON's own transcoder moves one. RapidJSON calls it
/// only at a plain character.
template <>
struct Transcoder<Zelk::Provider::Metadata::JsonEncoding, Zelk::Provider::Metadata::JsonEncoding>
    : Transcoder<UTF8<>, UTF8<>> {
  using Transcoder<UTF8<>, UTF8<>>::Transcode;

  static bool Transcode(Zelk::Provider::Metadata::InsituText& source,
                        Zelk::Provider::Metadata::InsituText& /*target, the same*/) {
    source.PutPlainCharacters();
    return true;
  }
};

}  // namespace rapidjson
