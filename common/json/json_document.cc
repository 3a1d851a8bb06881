#include "common/json/json_document.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace Zelk::Provider::Metadata {
namespace {

/// At one of these characters, RapidJSON's default mode reports an invalid value, and its iterative
/// mode reports that there is no value. Messages have the code of the default mode.
bool StartsLikeAValue(std::string_view text, std::size_t offset) {
  return offset < text.size() &&
         std::string_view("]},:").find(text[offset]) != std::string_view::npos;
}

rapidjson::ParseErrorCode DefaultModeCode(rapidjson::ParseErrorCode code, std::string_view text,
                                          std::size_t offset) {
  return code == rapidjson::kParseErrorDocumentEmpty && StartsLikeAValue(text, offset)
             ? rapidjson::kParseErrorValueInvalid
             : code;
}

}  // namespace

std::string ReadAll(std::istream& in) {
  std::string text;
  std::vector<char> chunk(65536);  // not on the stack: it is the caller's and may be small
  // read() and not the functions of the stream buffer: they throw for a folder opened as a file.
  while (in.read(chunk.data(), static_cast<std::streamsize>(chunk.size())) || in.gcount() > 0) {
    text.append(chunk.data(), static_cast<std::size_t>(in.gcount()));
  }
  return text;
}

JsonDocument::JsonDocument(TextBuffer text) : text_(std::move(text)), pool_(MakePool(text_)) {}

JsonDocument::Pool JsonDocument::MakePool(TextBuffer& text) {
  // RapidJSON uses some of the room itself.
  constexpr std::size_t kWorthwhile = 1024;
  if (text.RoomSize() < kWorthwhile) return Pool();
  return Pool(text.Room(), text.RoomSize());
}

bool JsonDocument::Parse(const char* parse_error_id, Errors& errors) {
  InsituText stream(text_);
  // Iterative: the default mode recurses, and a deeply nested file would overflow the stack.
  // Intended(utf8-unchecked): strings are kept byte for byte; clients get them as they are.
  constexpr unsigned kFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag;
  document_.ParseStream<kFlags, JsonEncoding>(stream);
  if (!document_.HasParseError()) {
    return true;
  }
  const std::size_t offset = document_.GetErrorOffset();
  errors.push_back(CatalogMessage(parse_error_id) %
                   DefaultModeCode(document_.GetParseError(), text_.View(), offset) % offset);
  return false;
}

}  // namespace Zelk::Provider::Metadata
