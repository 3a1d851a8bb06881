#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Zelk::Tool {

enum class JsonKind : std::uint8_t { kObject, kArray, kString, kOther };

/// A JSON text as values that know where they stand in it. Kept in one flat array, so that any
/// depth can be built, walked and released without recursion.
class JsonTree {
 public:
  using Id = std::uint32_t;

  static constexpr Id kRoot = 0;
  /// No value.
  static constexpr Id kNone = 0xffffffff;

  struct Value {
    JsonKind kind;
    Id parent;
    Id first_child;
    Id next;
    /// Among the elements of its array.
    std::uint32_t index;
    /// The first byte of the value.
    std::size_t offset;
    /// The first byte of the member's name; that of the value for what is no member.
    std::size_t name_offset;
    /// The name of a member.
    std::string name;
    /// The text of a string.
    std::string text;
  };

  /// Empty for a text that is not valid JSON.
  static std::optional<JsonTree> Parse(std::string_view text);

  const Value& operator[](Id id) const { return values_[id]; }

  /// The first member of an object with this name, compared up to a zero byte as the library does;
  /// kNone when there is none, or the value is no object.
  Id Find(Id object, const char* name) const;

  /// The JSON Pointer (RFC 6901) of the value; empty for the root.
  std::string Pointer(Id id) const;

 private:
  class Builder;

  std::vector<Value> values_;
};

}  // namespace Zelk::Tool
