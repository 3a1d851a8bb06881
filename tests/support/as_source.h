#pragma once

#include <istream>
#include <string_view>

#include "common/json/text_buffer.h"

// What the parsers read: a text as that of a file, a stream as it is.

namespace Zelk::Testing {

inline Provider::Metadata::TextBuffer AsSource(std::string_view text) {
  return Provider::Metadata::TextBuffer(text);
}

inline std::istream& AsSource(std::istream& in) {
  return in;
}

}  // namespace Zelk::Testing
