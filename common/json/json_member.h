#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include "common/json/json_enum.h"
#include "common/json/json_lookup.h"

// Each helper binds one member of a JSON object while it is constructed: it looks the member up,
// checks its type, converts it and appends a message for every problem. Afterwards Ok() reports
// whether to go on and Value() holds what was converted.

namespace Zelk::Provider::Metadata {

/// The outcome that all helpers share.
template <typename T>
class BoundMember {
 public:
  bool Ok() const { return ok_; }

  const T& Value() const { return value_; }

  T Take() { return std::move(value_); }

 protected:
  bool ok_ = false;
  T value_{};
};

inline bool ParseString(const JsonValue& value, const char* /*name*/, std::string& result,
                        Errors& /*errors*/) {
  result = TextOf(value);
  return true;
}

/// Converts a value already at hand, which must be a JSON string, with `kParser`.
template <auto kParser, typename T>
bool JsonParseString(const JsonValue& value, const char* name, T& result, Errors& errors) {
  return CheckType(value, JsonType::kString, name, errors) && kParser(value, name, result, errors);
}

/// How a string becomes a T: an enumeration, if it is not to stay a string.
template <typename T>
inline constexpr auto kDefaultStringParser = &ParseEnum<T>;

template <>
inline constexpr auto kDefaultStringParser<std::string> = &ParseString;

/// A required string, or a required enumeration written as one.
template <typename T, auto kParser = kDefaultStringParser<T>>
class JsonMember : public BoundMember<T> {
 public:
  JsonMember(const JsonValue& object, const char* name, Errors& errors) {
    const JsonValue* value = FindMember(object, name, errors);
    this->ok_ = value != nullptr && JsonParseString<kParser>(*value, name, this->value_, errors);
  }
};

template <typename T>
class JsonOptMember;

/// An optional string.
template <>
class JsonOptMember<boost::optional<std::string>>
    : public BoundMember<boost::optional<std::string>> {
 public:
  JsonOptMember(const JsonValue& object, const char* name, Errors& errors) {
    const auto found = LookUp(object, name, JsonType::kString, Presence::kOptional, errors);
    ok_ = found.ok;
    if (found.ok && found.value != nullptr) {
      value_ = ValToString(*found.value);
    }
  }
};

/// A parser's `parse` with its callbacks as the first argument, in the form that the helpers call.
template <typename Callbacks, typename Parse>
auto WithCallbacks(const Callbacks& callbacks, Parse parse) {
  return [&callbacks, parse](const JsonValue& value, auto&... out) {
    return parse(callbacks, value, out...);
  };
}

/// A nested object, read by `parse(value, result, errors)`.
template <typename T, Presence kPresence>
class JsonObjectMemberOf : public BoundMember<T> {
 public:
  template <typename Parse>
  JsonObjectMemberOf(const JsonValue& object, const char* name, const Parse& parse,
                     Errors& errors) {
    const auto found = LookUp(object, name, JsonType::kObject, kPresence, errors);
    this->ok_ = found.ok && (found.value == nullptr || parse(*found.value, this->value_, errors));
  }
};

/// A nested object of which nothing is kept, such as the root member of a document; read by
/// `parse(value, errors)`.
template <Presence kPresence>
class JsonObjectMemberOf<void, kPresence> {
 public:
  template <typename Parse>
  JsonObjectMemberOf(const JsonValue& object, const char* name, const Parse& parse,
                     Errors& errors) {
    const auto found = LookUp(object, name, JsonType::kObject, kPresence, errors);
    ok_ = found.ok && (found.value == nullptr || parse(*found.value, errors));
  }

  bool Ok() const { return ok_; }

 private:
  bool ok_;
};

template <typename T>
using JsonObjectMember = JsonObjectMemberOf<T, Presence::kRequired>;

/// Absent counts as present and empty.
template <typename T>
using JsonOptObjectMember = JsonObjectMemberOf<T, Presence::kOptional>;

/// Adds what an element parser made to a list; false for an empty pointer, its way to say it
/// failed.
template <typename Record>
bool AddElement(std::list<Record>& list, Record element) {
  if (!element) return false;
  list.push_back(std::move(element));
  return true;
}

/// The same for records that are to go into a map.
template <typename Record>
bool AddElement(std::vector<std::pair<std::string, Record>>& records,
                std::pair<std::string, Record> element) {
  if (!element.second) return false;
  records.push_back(std::move(element));
  return true;
}

template <typename Records, typename ParseElement>
bool ParseElements(const JsonValue& array, const ParseElement& parse_element, Records& records,
                   Errors& errors) {
  for (const auto& element : array.GetArray()) {  // checked: by JsonParseArray
    if (!AddElement(records, parse_element(element, errors))) return false;
  }
  return true;
}

template <typename Record, typename ParseElement>
bool ParseElements(const JsonValue& array, const ParseElement& parse_element,
                   std::map<std::string, Record>& map, Errors& errors) {
  // The map is filled when all its records are made, so that its nodes lie side by side in memory:
  // walks are about twice as fast.
  std::vector<std::pair<std::string, Record>> records;
  records.reserve(array.Size());
  const bool ok = ParseElements(array, parse_element, records, errors);
  // Intended(first-record-counts): of two elements with the same key, the first one is kept.
  for (auto& record : records) map.insert(std::move(record));
  return ok;
}

/// Reads an array already at hand; `parse_element(element, errors)` makes one record. Stops at the
/// first element that fails and keeps those before it.
template <typename Container, typename ParseElement>
bool JsonParseArray(const JsonValue& value, const char* name, const ParseElement& parse_element,
                    Container& container, Errors& errors) {
  return CheckType(value, JsonType::kArray, name, errors) &&
         ParseElements(value, parse_element, container, errors);
}

template <typename Container, Presence kPresence>
class JsonArrayMemberOf : public BoundMember<Container> {
 public:
  template <typename ParseElement>
  JsonArrayMemberOf(const JsonValue& object, const char* name, const ParseElement& parse_element,
                    Errors& errors) {
    const JsonValue* value = FindMember(object, name, errors);
    this->ok_ = value == nullptr
                    ? kPresence == Presence::kOptional
                    : JsonParseArray(*value, name, parse_element, this->value_, errors);
  }
};

template <typename Container>
using JsonArrayMember = JsonArrayMemberOf<Container, Presence::kRequired>;

/// Absent counts as present and empty.
template <typename Container>
using JsonOptArrayMember = JsonArrayMemberOf<Container, Presence::kOptional>;

}  // namespace Zelk::Provider::Metadata
