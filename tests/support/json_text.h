#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "common/json/json_document.h"

// JSON for tests: parsed, written, and changed in one place.

namespace Zelk::Testing {

using Provider::Metadata::JsonValue;
using JsonTree = rapidjson::GenericDocument<JsonValue::EncodingType, JsonValue::AllocatorType>;
using JsonPointer = rapidjson::GenericPointer<JsonValue>;

/// The document of a text that a test gives; the text must be JSON.
inline JsonTree Json(std::string_view text) {
  JsonTree document;
  document.Parse(text.data(), text.size());
  if (document.HasParseError()) {
    throw std::invalid_argument("not JSON: " + std::string(text));
  }
  return document;
}

template <typename Value>
std::string JsonText(const Value& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  value.Accept(writer);
  return {buffer.GetString(), buffer.GetSize()};
}

/// `json` without the member or element that `pointer` names, which must be there.
inline std::string Without(std::string_view json, const std::string& pointer) {
  JsonTree document = Json(json);
  if (!JsonPointer(pointer.c_str()).Erase(document)) {
    throw std::invalid_argument("nothing at " + pointer);
  }
  return JsonText(document);
}

/// `json` with `replacement` where `pointer` points; what is not there yet is added at the end.
inline std::string With(std::string_view json, const std::string& pointer,
                        std::string_view replacement) {
  JsonTree document = Json(json);
  const JsonTree value = Json(replacement);
  JsonPointer(pointer.c_str()).Set(document, value);
  return JsonText(document);
}

}  // namespace Zelk::Testing
