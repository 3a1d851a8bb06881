#pragma once

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>

#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

// What RapidJSON itself makes of a text, in its default mode and from a stream: the measure for the
// library's own way to parse.

namespace Zelk::Fuzzing {

/// How deep arrays and objects nest. Exact up to the first syntax error, where a parse ends.
inline std::size_t Nesting(std::string_view text) {
  std::size_t depth = 0;
  std::size_t deepest = 0;
  bool in_string = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char character = text[i];
    if (character == '"') {
      in_string = !in_string;
    } else if (in_string) {
      if (character == '\\') ++i;
    } else if (character == '[' || character == '{') {
      deepest = std::max(deepest, ++depth);
    } else if ((character == ']' || character == '}') && depth > 0) {
      --depth;
    }
  }
  return deepest;
}

/// The default mode recurses, so it is asked only about texts that its stack has room for.
inline bool CanAskDefaultMode(std::string_view text) {
  return Nesting(text) < 500;
}

inline void ParseInDefaultMode(std::string_view text, rapidjson::Document& document) {
  std::istringstream in{std::string(text)};
  rapidjson::IStreamWrapper stream(in);
  document.ParseStream(stream);
}

}  // namespace Zelk::Fuzzing
