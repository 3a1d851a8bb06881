#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace Zelk::Benchmarks {

/// Numbers, words and prose that look like those of interface descriptions. The same seed gives the
/// same on every machine, which the distributions of the standard library do not promise.
class RandomText {
 public:
  explicit RandomText(std::uint64_t seed) : engine_(seed) {}

  /// Both ends included.
  std::size_t Between(std::size_t least, std::size_t most) {
    return least + engine_() % (most - least + 1);
  }

  bool OneIn(std::size_t count) { return Between(1, count) == 1; }

  template <typename Choices>
  const auto& OneOf(const Choices& choices) {
    return choices[Between(0, std::size(choices) - 1)];
  }

  /// A lower-case noun or verb.
  const char* Word();

  /// Two words and `number`, which makes the name different from all others around it.
  std::string Name(std::size_t number);

  /// Some sentences of 50 to 300 characters; some have markup, some a line break or quotes, which
  /// JSON escapes.
  std::string Documentation();

  /// A sentence of 20 to 80 characters, as command lines show them.
  std::string Description();

 private:
  std::string Prose(std::size_t length);

  std::mt19937_64 engine_;
};

}  // namespace Zelk::Benchmarks
