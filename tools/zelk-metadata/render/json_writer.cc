#include "render/json_writer.h"

#include <ostream>

#include <rapidjson/prettywriter.h>

#include "render/utf8.h"

namespace Zelk::Tool::Render {
namespace {

constexpr std::size_t kDeepestIndented = 100;

}  // namespace

JsonWriter::JsonWriter() : writer_(buffer_) {}

void JsonWriter::StartObject() {
  Open();
  writer_.StartObject();
}

void JsonWriter::EndObject() {
  --depth_;
  writer_.EndObject();
}

void JsonWriter::StartArray() {
  Open();
  writer_.StartArray();
}

void JsonWriter::EndArray() {
  --depth_;
  writer_.EndArray();
}

JsonWriter& JsonWriter::Key(const std::string& name) {
  String(name);
  return *this;
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

void JsonWriter::Literal(const std::string& json) {
  writer_.RawValue(json.data(), json.size(), rapidjson::kNumberType);
}

void JsonWriter::Member(const std::string& name, const std::string& value) {
  Key(name).String(value);
}

void JsonWriter::Member(const std::string& name, const boost::optional<std::string>& value) {
  Key(name);
  if (value) {
    String(*value);
  } else {
    Null();
  }
}

void JsonWriter::WriteIndented(Buffer& indented) const {
  rapidjson::StringStream in(buffer_.GetString());
  rapidjson::PrettyWriter<Buffer, Utf8, Ascii, Analysis::JsonHeap> writer(indented);
  writer.SetIndent(' ', 2);
  Analysis::JsonReader().Parse<rapidjson::kParseIterativeFlag>(in, writer);
}

void JsonWriter::WriteTo(std::ostream& out, bool indented) const {
  const bool is_indented = indented && deepest_ <= kDeepestIndented;
  Buffer text;
  if (is_indented) WriteIndented(text);
  const Buffer& shown = is_indented ? text : buffer_;
  out.write(shown.GetString(), static_cast<std::streamsize>(shown.GetSize()));
  out.put('\n');
}

}  // namespace Zelk::Tool::Render
