#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "common/json/json_lookup.h"

namespace Zelk::Provider::Metadata {

/// Returns `text` in upper case, by the rules of the global locale.
std::string ToUpper(std::string text);

class EnumConverter {
 public:
  /// Returns the enumerator of `E` whose text is `text`, ignoring case. If there is none, returns
  /// the unknown value with the text in upper case.
  template <typename E>
  static E Convert(std::string_view text) {
    E exact = FindExact<E>(text);
    if (exact.Value() != E::UNKNOWN) return exact;
    std::string upper = ToUpper(std::string(text));
    E converted = FindExact<E>(upper);
    return converted.Value() != E::UNKNOWN ? converted : E::Unknown(std::move(upper));
  }

  /// Returns the enumerator of `E` whose text is exactly `text`, or the unknown value.
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

/// Returns whether `value` is known. If not, appends the invalid-enum-value message with `name`.
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
bool ParseEnum(const JsonValue& value, const char* name, E& result, Errors& errors) {
  result = EnumConverter::Convert<E>(TextOf(value));
  return CheckEnum(result, name, errors);
}

/// As ParseEnum; `alias` is another text for `meaning`. It must be in upper case and differ from
/// the texts of the enumerators.
template <typename E>
bool ParseAliasedEnum(const JsonValue& value, const char* name, const char* alias,
                      typename E::Enumerator meaning, E& result, Errors& errors) {
  result = EnumConverter::Convert<E>(TextOf(value));
  if (result.Text() == alias) {
    result = meaning;
  }
  return CheckEnum(result, name, errors);
}

}  // namespace Zelk::Provider::Metadata
