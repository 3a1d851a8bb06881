#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>

#include <boost/optional.hpp>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "analysis/json_heap.h"

namespace Zelk::Tool::Render {

/// Builds one JSON text, in ASCII: other characters are written as \uXXXX, so that the
/// text is harmless on a terminal, too. Bytes that are not part of well-formed UTF-8 become U+FFFD.
/// Nesting is limited by memory only.
class JsonWriter {
 public:
  JsonWriter();

  void StartObject();
  void EndObject();
  void StartArray();
  void EndArray();
  /// Returns the writer, for the value.
  JsonWriter& Key(const std::string& name);
  void String(const std::string& value);
  void Number(std::uint64_t value);
  void Bool(bool value);
  void Null();
  /// A number, true, false or null, as JSON has it.
  void Literal(const std::string& json);

  /// A key with its value; null for an empty optional.
  void Member(const std::string& name, const std::string& value);
  void Member(const std::string& name, const boost::optional<std::string>& value);

  /// The array of the strings in any container of them.
  template <typename Strings>
  void StringArray(const Strings& strings) {
    StartArray();
    for (const std::string& string : strings) String(string);
    EndArray();
  }

  /// The text, which must be complete, on one line or indented, and a line end. What is nested very
  /// deep is on one line: its indentation would be much longer than the text.
  void WriteTo(std::ostream& out, bool indented = false) const;

 private:
  void Open() { deepest_ = std::max(deepest_, ++depth_); }

  std::size_t depth_ = 0;
  std::size_t deepest_ = 0;
  using Utf8 = rapidjson::UTF8<>;
  using Ascii = rapidjson::ASCII<>;
  using Buffer = rapidjson::GenericStringBuffer<Utf8, Analysis::JsonHeap>;

  void WriteIndented(Buffer& indented) const;

  Buffer buffer_;
  rapidjson::Writer<Buffer, Utf8, Ascii, Analysis::JsonHeap> writer_;
};

}  // namespace Zelk::Tool::Render
