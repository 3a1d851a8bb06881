#include "json_writer.h"

namespace Zelk::Benchmarks {

void JsonWriter::Key(std::string_view key) {
  BeginValue();
  Quoted(key);
  text_ += layout_ == Layout::kPretty ? ": " : ":";
  is_after_key_ = true;
}

void JsonWriter::String(std::string_view text) {
  BeginValue();
  Quoted(text);
}

void JsonWriter::Member(std::string_view key, std::string_view text) {
  Key(key);
  String(text);
}

void JsonWriter::EmptyObject(std::string_view key) {
  Key(key);
  OpenObject();
  CloseObject();
}

void JsonWriter::EmptyArray(std::string_view key) {
  Key(key);
  OpenArray();
  CloseArray();
}

void JsonWriter::Open(char bracket) {
  BeginValue();
  text_ += bracket;
  ++depth_;
  is_first_ = true;
}

void JsonWriter::Close(char bracket) {
  --depth_;
  if (!is_first_) NewLine();
  text_ += bracket;
  is_first_ = false;
}

void JsonWriter::BeginValue() {
  if (is_after_key_) {
    is_after_key_ = false;
    return;
  }
  if (!is_first_) text_ += ',';
  if (depth_ > 0) NewLine();
  is_first_ = false;
}

void JsonWriter::NewLine() {
  if (layout_ == Layout::kCompact) return;
  text_ += '\n';
  text_.append(2 * depth_, ' ');
}

void JsonWriter::Quoted(std::string_view text) {
  text_ += '"';
  for (const char character : text) {
    if (character == '\n') {
      text_ += "\\n";
      continue;
    }
    if (character == '"' || character == '\\') text_ += '\\';
    text_ += character;
  }
  text_ += '"';
}

}  // namespace Zelk::Benchmarks
