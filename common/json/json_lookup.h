#pragma once

#include <string>
#include <string_view>

#include "common/json/json_document.h"

namespace Zelk::Provider::Metadata {

/// The JSON types that members of a metadata file can be asked to have.
enum class JsonType { kString, kObject, kArray };

enum class Presence { kRequired, kOptional };

/// What a checked lookup found. `ok` with a null `value` is an optional member that is absent.
struct JsonLookup {
  bool ok;
  const JsonValue* value;
};

/// The members of `value` in document order; none when it is no object.
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

/// The same; appends the missing-field message when there is none.
const JsonValue* FindMember(const JsonValue& object, const char* name, Errors& errors);

/// Whether `value` has the type; appends the invalid-field message with `name` when not.
bool CheckType(const JsonValue& value, JsonType type, const char* name, Errors& errors);

/// The one lookup under all member helpers: presence and type checked, messages appended.
/// Intended(absent-key-message): an absent optional member leaves a missing-field message, too; the
/// messages of a failed load list all keys that were absent.
JsonLookup LookUp(const JsonValue& object, const char* name, JsonType type, Presence presence,
                  Errors& errors);

/// The text of a JSON string, embedded zero bytes kept. `value` must be a string, and the view ends
/// with its document.
inline std::string_view TextOf(const JsonValue& value) {
  return {value.GetString(), value.GetStringLength()};
}

/// A copy of that text.
inline std::string ValToString(const JsonValue& value) {
  return std::string(TextOf(value));
}

}  // namespace Zelk::Provider::Metadata
