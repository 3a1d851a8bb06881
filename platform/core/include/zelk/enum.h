#pragma once

#include <string>
#include <utility>

#include <zelk/export.h>

namespace Zelk {

/// The value of a generated enumeration: the position of its enumerator, or "unknown" with the text
/// that matched none. The text is kept so that a value of a newer peer is not lost when an older
/// program passes it on.
class ZELK_CORE_EXPORT Enum {
 public:
  /// Returns the position of the enumerator, from 0. The number of enumerators means "unknown".
  int Value() const { return value_; }

  /// Returns the text that matched no enumerator. Empty for a known value.
  const std::string& Text() const { return text_; }

 protected:
  explicit Enum(int value) : value_(value) {}

  Enum(const Enum&) = default;
  Enum(Enum&&) noexcept = default;
  Enum& operator=(const Enum&) = default;
  Enum& operator=(Enum&&) noexcept = default;
  ~Enum() = default;

  void SetText(std::string text) { text_ = std::move(text); }

 private:
  int value_;
  std::string text_;
};

/// The common base of all generated enumerations. A generated enumeration E derives from
/// GeneratedEnum<E> and adds only
///
///   enum Enumerator { A, B, ..., UNKNOWN };
///   struct Strings { static const char* const values[]; };  // null-terminated, by Enumerator
///   E();                                                    // UNKNOWN
///   E(Enumerator);
///
/// The last constructor is implicit so that `value == E::A` compiles.
template <typename E>
class GeneratedEnum : public Enum {
 public:
  /// Returns the unknown value with the text that matched no enumerator.
  static E Unknown(std::string text) {
    E unknown;
    unknown.SetText(std::move(text));
    return unknown;
  }

  friend bool operator==(const E& left, const E& right) {
    return left.Value() == right.Value() && left.Text() == right.Text();
  }

  friend bool operator!=(const E& left, const E& right) { return !(left == right); }

 protected:
  using Enum::Enum;
};

}  // namespace Zelk
