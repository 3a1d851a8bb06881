#pragma once

#include <string>
#include <string_view>

#include "common/json/json_document.h"

namespace Zelk::Provider::Metadata {

/// The JSON types that the formats require of members.
enum class JsonType { kString, kObject, kArray };

enum class Presence { kRequired, kOptional };

/// The result of a checked lookup. If `ok` is true and `value` null, an optional member is absent.
struct JsonLookup {
  bool ok;
  const JsonValue* value;
};

/// The members of `value` in document order; empty if it is not an object.
class JsonMembers {
 public:
  explicit JsonMembers(const JsonValue& value);

  JsonValue::ConstMemberIterator begin() const { return begin_; }

  JsonValue::ConstMemberIterator end() const { return end_; }

 private:
  JsonValue::ConstMemberIterator begin_;
  JsonValue::ConstMemberIterator end_;
};

/// Returns the value of the first member of `object` called `name`; null if there is none or if
/// `object` is not an object.
/// Intended(key-as-c-string): keys are compared as C strings, so a key ends at its first zero byte.
/// Intended(first-key-counts): if a key occurs twice, the first one counts, without a message.
const JsonValue* FindMember(const JsonValue& object, const char* name);

/// As above; appends the missing-field message if there is none.
const JsonValue* FindMember(const JsonValue& object, const char* name, Errors& errors);

/// Returns whether `value` has the type. If not, appends the invalid-field message with `name`.
bool CheckType(const JsonValue& value, JsonType type, const char* name, Errors& errors);

/// The lookup of all member helpers: checks presence and type and appends the messages.
/// Intended(absent-key-message): an absent optional member leaves a missing-field message, too; the
/// messages of a failed load list all keys that were absent.
JsonLookup LookUp(const JsonValue& object, const char* name, JsonType type, Presence presence,
                  Errors& errors);

/// Returns the text of a JSON string, including zero bytes. `value` must be a string. The view is
/// valid as long as its document.
inline std::string_view TextOf(const JsonValue& value) {
  return {value.GetString(), value.GetStringLength()};
}

/// Returns a copy of that text.
inline std::string ValToString(const JsonValue& value) {
  return std::string(TextOf(value));
}

}  // namespace Zelk::Provider::Metadata
