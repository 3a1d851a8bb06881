#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Zelk::Fuzzing {

/// What a document says, as plain values: the text that is written and the model are both made
/// from it.
struct Json {
  enum class Kind { kNull, kBoolean, kNumber, kString, kArray, kObject };

  Kind kind = Kind::kNull;
  std::string text;               // of a string
  std::vector<std::string> keys;  // of an object, one for each element
  std::vector<Json> elements;     // of an array or an object
};

Json JsonNull();
Json JsonBoolean();
Json JsonNumber();
Json JsonString(std::string text);
Json JsonArray(std::vector<Json> elements);
Json JsonObject(std::vector<std::pair<std::string, Json>> members);

std::string WriteJson(const Json& json);

/// Why a text is not a document.
struct SyntaxError {
  int code = 0;
  std::size_t offset = 0;
};

/// What a text says that is not made by WriteJson, as RapidJSON's default mode reads a stream.
std::variant<Json, SyntaxError> ReadJson(const std::string& text);

}  // namespace Zelk::Fuzzing
