#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace Zelk::Fuzzing {

/// The bytes that a run is drawn from: one byte a decision, zero once they have run out. Where many
/// decisions are needed, a few bytes can stand for them: they seed a stream of random ones.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  std::size_t Size() const { return size_; }

  bool Empty() const { return position_ == size_; }

  std::size_t Byte() {
    if (random_ != 0) return NextRandom();
    return Empty() ? 0 : data_[position_++];
  }

  void BeginRandom() {
    const auto seed = Byte() + 256 * Byte();
    random_ = static_cast<std::uint32_t>(2 * seed + 1);
  }

  void EndRandom() { random_ = 0; }

  /// A number below `bound`, which must not be zero.
  std::size_t Below(std::size_t bound) { return Byte() % bound; }

  /// Once in `times`, and never when the bytes have run out.
  bool OnceIn(std::size_t times) { return Byte() % times == times - 1; }

  template <typename T, std::size_t kCount>
  const T& Pick(const std::array<T, kCount>& values) {
    return values[Below(kCount)];
  }

  /// A text that this run has not used yet, so that things of one name can be told apart.
  std::string FreshText() { return "d" + std::to_string(++texts_); }

 private:
  /// A step of a xorshift generator, which never comes to zero.
  std::size_t NextRandom() {
    random_ ^= random_ << 13U;
    random_ ^= random_ >> 17U;
    random_ ^= random_ << 5U;
    return (random_ >> 16U) & 0xffU;
  }

  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t position_ = 0;
  std::size_t texts_ = 0;
  std::uint32_t random_ = 0;
};

}  // namespace Zelk::Fuzzing
