#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <zelk/export.h>

// The digest state of the cryptography library, whose own headers stay out of this one.
struct MD5state_st;

namespace Zelk {

/// An MD5 digest in the making. It tells contents apart and protects nothing.
///
/// The constructor and both kinds of hexdigest throw std::bad_alloc when memory runs out; nothing
/// else fails.
class ZELK_CORE_EXPORT MD5 {
 public:
  MD5();
  MD5(MD5&& other) noexcept;
  MD5& operator=(MD5&& other) noexcept;
  ~MD5();

  /// Feeds more bytes. Nothing separates what is fed by one call from what is fed by the next.
  void Update(const std::string& bytes);
  void Update(const char* data, std::size_t size);

  /// The 32 lower-case hex digits of what was fed so far. Feeding may go on afterwards.
  std::string hexdigest() const;

  /// The hex digits of everything from the stream's current position to its end. Leaves the stream
  /// at its end, with its end-of-file state set. A stream that cannot be read counts as empty.
  static std::string hexdigest(std::istream& in);

 private:
  struct StateDeleter {
    void operator()(MD5state_st* state) const;
  };

  std::unique_ptr<MD5state_st, StateDeleter> state_;
};

}  // namespace Zelk
