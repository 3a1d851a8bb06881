#include "hosting/host_json.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>

// Every choice differs from the library's; were one function of the two copies taken for the other,
// layouts and rules would not match.
#define RAPIDJSON_NO_SIZETYPEDEFINE

namespace rapidjson {
using SizeType = std::uint64_t;
}  // namespace rapidjson

#define RAPIDJSON_48BITPOINTER_OPTIMIZATION 0
#define RAPIDJSON_HAS_STDSTRING 1
#define RAPIDJSON_ASSERT(condition) \
  ((condition) ? static_cast<void>(0) : throw std::logic_error(#condition))
#define RAPIDJSON_NOEXCEPT_ASSERT(condition) static_cast<void>(0)
#define RAPIDJSON_PARSE_DEFAULT_FLAGS \
  (rapidjson::kParseCommentsFlag | rapidjson::kParseTrailingCommasFlag)
#include <rapidjson/document.h>

long HostSum(const std::string& json) {
  static_assert(sizeof(rapidjson::SizeType) == 8, "not the library's");
  rapidjson::Document document;
  document.Parse(json);
  if (document.HasParseError()) return -1;
  long sum = 0;
  for (const auto& number : document["a"].GetArray()) sum += number.GetInt();
  const rapidjson::Value text(document["s"], document.GetAllocator());
  try {
    text.GetInt();  // a text is no number: the host's own assertion says so
  } catch (const std::logic_error&) {
    return sum + static_cast<long>(text.GetStringLength());
  }
  return -2;
}
