#pragma once

#include <istream>
#include <string>

#include <rapidjson/document.h>

#include "common/json/insitu_text.h"
#include "common/json/json_heap.h"
#include "common/json/text_buffer.h"
#include "common/messages/message_catalog.h"

namespace Zelk::Provider::Metadata {

/// Returns everything from the stream's current position to its end.
std::string ReadAll(std::istream& in);

/// A value of a JSON document.
using JsonValue = rapidjson::GenericValue<JsonEncoding, rapidjson::MemoryPoolAllocator<JsonHeap>>;

/// A JSON document. Its values are in one memory pool and its strings in the text that it was
/// parsed from. All are released at once, without recursion.
class JsonDocument {
 public:
  explicit JsonDocument(TextBuffer text);

  /// Parses the whole text, nested to any depth, with RapidJSON's default (strict) rules. Call it
  /// once. On a syntax error, appends `parse_error_id` with RapidJSON's error code and the byte
  /// offset, and returns false.
  /// Intended(zero-byte-ends-text): RapidJSON takes a zero byte for the end of its stream.
  bool Parse(const char* parse_error_id, Errors& errors);

  /// Returns the outermost value. Only after a successful parse.
  const JsonValue& Root() const { return document_; }

 private:
  using Pool = rapidjson::MemoryPoolAllocator<JsonHeap>;

  static Pool MakePool(TextBuffer& text);

  TextBuffer text_;
  Pool pool_;
  rapidjson::GenericDocument<JsonEncoding, Pool, JsonHeap> document_{&pool_};
};

}  // namespace Zelk::Provider::Metadata
