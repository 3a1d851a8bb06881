#pragma once

#include <istream>
#include <string>

#include <rapidjson/document.h>

#include "common/json/insitu_text.h"
#include "common/json/json_heap.h"
#include "common/json/text_buffer.h"
#include "common/messages/message_catalog.h"

namespace Zelk::Provider::Metadata {

/// Everything from the stream's current position to its end.
std::string ReadAll(std::istream& in);

/// A value of a JSON document, as RapidJSON has it.
using JsonValue = rapidjson::GenericValue<JsonEncoding, rapidjson::MemoryPoolAllocator<JsonHeap>>;

/// A JSON document. Its values live in one memory pool, its strings in the text that it was parsed
/// from, and all are released at one stroke, however deeply they nest.
class JsonDocument {
 public:
  explicit JsonDocument(TextBuffer text);

  /// Parses the whole text, nested to any depth, with RapidJSON's default (strict) rules; to be
  /// called once. False on a syntax error, after appending `parse_error_id` with the parse-error
  /// code and the byte offset.
  /// Intended(zero-byte-ends-text): RapidJSON takes a zero byte for the end of its stream.
  bool Parse(const char* parse_error_id, Errors& errors);

  /// The value that the text is, after a successful parse.
  const JsonValue& Root() const { return document_; }

 private:
  using Pool = rapidjson::MemoryPoolAllocator<JsonHeap>;

  static Pool MakePool(TextBuffer& text);

  TextBuffer text_;
  Pool pool_;
  rapidjson::GenericDocument<JsonEncoding, Pool, JsonHeap> document_{&pool_};
};

}  // namespace Zelk::Provider::Metadata
