#include "stateful/json_tree.h"

#include <sstream>

#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

namespace Zelk::Fuzzing {
namespace {

Json OfKind(Json::Kind kind) {
  Json json;
  json.kind = kind;
  return json;
}

void Append(const std::string& text, std::string& out) {
  constexpr char kDigits[] = "0123456789abcdef";
  out += '"';
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < 0x20) {
      out += {'\\', 'u', '0', '0', kDigits[byte / 16], kDigits[byte % 16]};
    } else {
      if (character == '"' || character == '\\') out += '\\';
      out += character;
    }
  }
  out += '"';
}

void Append(const Json& json, std::string& out);

void AppendElements(const Json& json, std::string& out) {
  for (std::size_t index = 0; index < json.elements.size(); ++index) {
    if (index != 0) out += ',';
    if (json.kind == Json::Kind::kObject) {
      Append(json.keys[index], out);
      out += ':';
    }
    Append(json.elements[index], out);
  }
}

void Append(const Json& json, std::string& out) {
  switch (json.kind) {
    case Json::Kind::kNull:
      out += "null";
      return;
    case Json::Kind::kBoolean:
      out += "true";
      return;
    case Json::Kind::kNumber:
      out += "1";
      return;
    case Json::Kind::kString:
      Append(json.text, out);
      return;
    case Json::Kind::kArray:
    case Json::Kind::kObject:
      const bool is_array = json.kind == Json::Kind::kArray;
      out += is_array ? '[' : '{';
      AppendElements(json, out);
      out += is_array ? ']' : '}';
  }
}

std::string Text(const rapidjson::Value& value) {
  return {value.GetString(), value.GetStringLength()};
}

Json Tree(const rapidjson::Value& value) {
  if (value.IsNull()) return JsonNull();
  if (value.IsBool()) return JsonBoolean();
  if (value.IsNumber()) return JsonNumber();
  if (value.IsString()) return JsonString(Text(value));
  Json json = OfKind(value.IsArray() ? Json::Kind::kArray : Json::Kind::kObject);
  if (value.IsArray()) {
    for (const auto& element : value.GetArray()) json.elements.push_back(Tree(element));
  } else {
    for (const auto& member : value.GetObject()) {
      json.keys.push_back(Text(member.name));
      json.elements.push_back(Tree(member.value));
    }
  }
  return json;
}

}  // namespace

Json JsonNull() {
  return OfKind(Json::Kind::kNull);
}

Json JsonBoolean() {
  return OfKind(Json::Kind::kBoolean);
}

Json JsonNumber() {
  return OfKind(Json::Kind::kNumber);
}

Json JsonString(std::string text) {
  Json json = OfKind(Json::Kind::kString);
  json.text = std::move(text);
  return json;
}

Json JsonArray(std::vector<Json> elements) {
  Json json = OfKind(Json::Kind::kArray);
  json.elements = std::move(elements);
  return json;
}

Json JsonObject(std::vector<std::pair<std::string, Json>> members) {
  Json json = OfKind(Json::Kind::kObject);
  for (auto& [key, value] : members) {
    json.keys.push_back(std::move(key));
    json.elements.push_back(std::move(value));
  }
  return json;
}

std::string WriteJson(const Json& json) {
  std::string text;
  Append(json, text);
  return text;
}

std::variant<Json, SyntaxError> ReadJson(const std::string& text) {
  std::istringstream in(text);
  rapidjson::IStreamWrapper stream(in);
  rapidjson::Document document;
  document.ParseStream(stream);
  if (document.HasParseError()) {
    return SyntaxError{static_cast<int>(document.GetParseError()), document.GetErrorOffset()};
  }
  return Tree(document);
}

}  // namespace Zelk::Fuzzing
