#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

namespace Zelk::Analysis::Schema {

/// Writes one indented JSON text. What goes between brackets is written by `write()`.
class Json {
 public:
  Json() : writer_(buffer_) { writer_.SetIndent(' ', 2); }

  template <typename Write>
  void Object(const Write& write) {
    writer_.StartObject();
    write();
    writer_.EndObject();
  }

  template <typename Write>
  void Object(std::string_view key, const Write& write) {
    Key(key);
    Object(write);
  }

  template <typename Write>
  void Array(std::string_view key, const Write& write) {
    Key(key);
    writer_.StartArray();
    write();
    writer_.EndArray();
  }

  void Key(std::string_view key) {
    writer_.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()));
  }

  void Text(std::string_view text) {
    writer_.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  }

  void Text(std::string_view key, std::string_view text) {
    Key(key);
    Text(text);
  }

  void Texts(std::string_view key, const std::vector<std::string_view>& texts) {
    Array(key, [&] {
      for (const std::string_view text : texts) Text(text);
    });
  }

  void Bool(std::string_view key, bool value) {
    Key(key);
    writer_.Bool(value);
  }

  void Number(std::string_view key, int value) {
    Key(key);
    writer_.Int(value);
  }

  /// With a line end.
  std::string Result() const { return std::string(buffer_.GetString(), buffer_.GetSize()) + '\n'; }

 private:
  rapidjson::StringBuffer buffer_;
  rapidjson::PrettyWriter<rapidjson::StringBuffer> writer_;
};

}  // namespace Zelk::Analysis::Schema
