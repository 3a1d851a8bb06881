#pragma once

#include <string>
#include <utility>

#include <zelk/export.h>

namespace Zelk {

/// The value of a generated enumeration: the position of the enumerator, and, for a text that names
/// no enumerator, that text. So a value that a newer peer sent is not lost on the way through an
/// older one.
class ZELK_CORE_EXPORT Enum {
 public:
  /// 0 for the first enumerator. The number of enumerators stands for "unknown".
  int Value() const { return value_; }

  /// Empty for a known value.
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

/// What all generated enumerations share. A generated enumeration E derives from GeneratedEnum<E>
/// and adds only
///
///   enum Enumerator { A, B, ..., UNKNOWN };
///   struct Strings { static const char* const values[]; };  // null-terminated, by Enumerator
///   E();                                                    // UNKNOWN
///   E(Enumerator);
///
/// The last constructor is implicit, which makes `value == E::A` work.
template <typename E>
class GeneratedEnum : public Enum {
 public:
  /// The unknown value that remembers the text that could not be matched.
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
