#pragma once

#include <cstddef>
#include <istream>
#include <limits>
#include <string>
#include <string_view>

#include <rapidjson/document.h>

#include "common/message_catalog.h"

namespace Zelk::Provider::Metadata {

/// The heap under a JSON document. RapidJSON writes through whatever its allocator returns, so
/// memory that is not to be had must end in std::bad_alloc here and never in a null pointer.
class JsonHeap {
 public:
  static const bool kNeedFree = true;

  static void* Malloc(std::size_t size);
  static void* Realloc(void* block, std::size_t old_size, std::size_t new_size);
  static void Free(void* block);
};

/// A JSON document; its values live in one memory pool and are released with it at one stroke,
/// however deeply they nest.
using JsonDocument = rapidjson::GenericDocument<rapidjson::UTF8<>,
                                                rapidjson::MemoryPoolAllocator<JsonHeap>, JsonHeap>;
using JsonValue = JsonDocument::ValueType;

/// The most bytes that a text may have: as many as RapidJSON can count.
inline constexpr std::size_t kMaxTextSize = std::numeric_limits<rapidjson::SizeType>::max();

/// Everything from the stream's current position to its end.
std::string ReadAll(std::istream& in);

/// Parses the whole of `text`, nested to any depth, with RapidJSON's default (strict) rules.
/// False on a syntax error, after appending `parse_error_id` with the parse-error code and the
/// byte offset. As RapidJSON reads a stream, a zero byte ends the text. Throws std::bad_alloc for
/// a text of more than kMaxTextSize bytes.
bool ParseJson(std::string_view text, const char* parse_error_id, JsonDocument& document,
               Errors& errors);

}  // namespace Zelk::Provider::Metadata
