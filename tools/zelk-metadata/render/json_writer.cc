#include "render/json_writer.h"

#include <ostream>

#include "render/utf8.h"

namespace Zelk::Tool {

JsonWriter::JsonWriter() : writer_(buffer_) {}

void JsonWriter::StartObject() {
  writer_.StartObject();
}

void JsonWriter::EndObject() {
  writer_.EndObject();
}

void JsonWriter::StartArray() {
  writer_.StartArray();
}

void JsonWriter::EndArray() {
  writer_.EndArray();
}

void JsonWriter::Key(const std::string& name) {
  String(name);
}

void JsonWriter::String(const std::string& value) {
  const std::string repaired = RepairedUtf8(value);
  writer_.String(repaired.data(), static_cast<rapidjson::SizeType>(repaired.size()));
}

void JsonWriter::Number(std::uint64_t value) {
  writer_.Uint64(value);
}

void JsonWriter::Bool(bool value) {
  writer_.Bool(value);
}

void JsonWriter::Null() {
  writer_.Null();
}

void JsonWriter::Member(const std::string& name, const std::string& value) {
  Key(name);
  String(value);
}

void JsonWriter::Member(const std::string& name, const boost::optional<std::string>& value) {
  Key(name);
  if (value) {
    String(*value);
  } else {
    Null();
  }
}

void JsonWriter::WriteTo(std::ostream& out) const {
  out.write(buffer_.GetString(), static_cast<std::streamsize>(buffer_.GetSize()));
  out.put('\n');
}

}  // namespace Zelk::Tool
