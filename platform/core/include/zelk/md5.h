#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <zelk/export.h>

namespace Zelk {

/// Computes an MD5 digest step by step. It is for detecting changes, not for security.
///
/// The constructor and both forms of hexdigest throw std::bad_alloc when memory runs out; nothing
/// else fails. A digest that was moved from can only be assigned to and destroyed.
class ZELK_CORE_EXPORT MD5 {
 public:
  MD5();
  MD5(MD5&& other) noexcept;
  MD5& operator=(MD5&& other) noexcept;
  ~MD5();

  /// Appends bytes to the input. The digest depends only on the bytes, not on how they are split
  /// into calls.
  void Update(const std::string& bytes);
  void Update(const char* data, std::size_t size);

  /// Returns the digest of the input so far as 32 lower-case hex digits. More input may follow.
  std::string hexdigest() const;

  /// Returns the digest of everything from the stream's current position to its end. Leaves the
  /// stream at its end, in the end-of-file state. A stream that cannot be read counts as empty.
  static std::string hexdigest(std::istream& in);

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace Zelk
