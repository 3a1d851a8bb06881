#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "common/json/json_lookup.h"

namespace Zelk::Provider::Metadata {

/// `text` in upper case, by the rules of the global locale.
std::string ToUpper(std::string text);

class EnumConverter {
 public:
  /// The enumerator of `E` whose text is `text`, upper and lower case alike; the unknown value
  /// holding the upper-cased text when there is none.
  template <typename E>
  static E Convert(std::string_view text) {
    E exact = FindExact<E>(text);
    if (exact.Value() != E::UNKNOWN) return exact;
    std::string upper = ToUpper(std::string(text));
    E converted = FindExact<E>(upper);
    return converted.Value() != E::UNKNOWN ? converted : E::Unknown(std::move(upper));
  }

  /// The enumerator of `E` whose text is exactly `text`; unknown when there is none.
  template <typename E>
  static E FindExact(std::string_view text) {
    for (int value = 0; E::Strings::values[value] != nullptr; ++value) {
      if (text == E::Strings::values[value]) {
        return E(static_cast<typename E::Enumerator>(value));
      }
    }
    return E();
  }
};

/// Whether `value` is a known one; appends the invalid-enum-value message with `name` when not.
template <typename E>
bool CheckEnum(const E& value, const char* name, Errors& errors) {
  if (value.Value() != E::UNKNOWN) {
    return true;
  }
  errors.push_back(CatalogMessage(MessageId::kInvalidEnumValue) % name);
  return false;
}

/// Reads an enumerator of `E` from a JSON string.
template <typename E>
bool ParseEnum(const JsonValue& value, const char* name, Errors& errors, E& result) {
  result = EnumConverter::Convert<E>(TextOf(value));
  return CheckEnum(result, name, errors);
}

/// Reads an enumerator of `E` from a JSON string that may also be written as `alias`, which stands
/// for `meaning`. The alias is in upper case and none of the enumerators' own texts.
template <typename E>
bool ParseAliasedEnum(const JsonValue& value, const char* name, Errors& errors, E& result,
                      const char* alias, typename E::Enumerator meaning) {
  result = EnumConverter::Convert<E>(TextOf(value));
  if (result.Text() == alias) {
    result = meaning;
  }
  return CheckEnum(result, name, errors);
}

}  // namespace Zelk::Provider::Metadata
