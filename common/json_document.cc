#include "common/json_document.h"

#include <cstdlib>
#include <new>
#include <vector>

namespace Zelk::Provider::Metadata {
namespace {

/// RapidJSON's input stream over a text in memory; past its end it answers as a file stream does.
class TextStream {
 public:
  using Ch = char;

  explicit TextStream(std::string_view text) : text_(text) {}

  Ch Peek() const { return position_ < text_.size() ? text_[position_] : '\0'; }

  Ch Take() { return position_ < text_.size() ? text_[position_++] : '\0'; }

  std::size_t Tell() const { return position_; }

  // RapidJSON names the writing half of a stream even where it only reads.
  Ch* PutBegin() { return nullptr; }

  void Put(Ch) {}

  std::size_t PutEnd(Ch*) { return 0; }

 private:
  std::string_view text_;
  std::size_t position_ = 0;
};

/// The default mode sees a value that cannot begin where the iterative mode sees no value at all,
/// for these first characters only. Messages carry the default mode's code.
bool StartsLikeAValue(std::string_view text, std::size_t offset) {
  return offset < text.size() &&
         std::string_view("]},:").find(text[offset]) != std::string_view::npos;
}

rapidjson::ParseErrorCode DefaultModeCode(const JsonDocument& document, std::string_view text) {
  const auto code = document.GetParseError();
  if (code == rapidjson::kParseErrorDocumentEmpty &&
      StartsLikeAValue(text, document.GetErrorOffset())) {
    return rapidjson::kParseErrorValueInvalid;
  }
  return code;
}

void* OrBadAlloc(void* block) {
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* JsonHeap::Malloc(std::size_t size) {
  return size == 0 ? nullptr : OrBadAlloc(std::malloc(size));
}

void* JsonHeap::Realloc(void* block, std::size_t /*old_size*/, std::size_t new_size) {
  if (new_size == 0) {
    std::free(block);
    return nullptr;
  }
  return OrBadAlloc(std::realloc(block, new_size));
}

void JsonHeap::Free(void* block) {
  std::free(block);
}

std::string ReadAll(std::istream& in) {
  std::string text;
  std::vector<char> chunk(65536);  // not on the stack, which is the caller's and may be small
  // read() and not the buffer's own functions: those throw for a folder opened as a file.
  while (in.read(chunk.data(), static_cast<std::streamsize>(chunk.size())) || in.gcount() > 0) {
    text.append(chunk.data(), static_cast<std::size_t>(in.gcount()));
  }
  return text;
}

bool ParseJson(std::string_view text, const char* parse_error_id, JsonDocument& document,
               Errors& errors) {
  if (text.size() > kMaxTextSize) throw std::bad_alloc();
  TextStream stream(text);
  // Iterative: the default mode recurses, and a deeply nested file would overflow the stack.
  document.ParseStream<rapidjson::kParseIterativeFlag>(stream);
  if (!document.HasParseError()) {
    return true;
  }
  errors.push_back(CatalogMessage(parse_error_id) % DefaultModeCode(document, text) %
                   document.GetErrorOffset());
  return false;
}

}  // namespace Zelk::Provider::Metadata
