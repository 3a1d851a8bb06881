#pragma once

#include <cstddef>
#include <string>

namespace Zelk::Testing {

inline std::string Repeat(const std::string& text, std::size_t times) {
  std::string repeated;
  repeated.reserve(text.size() * times);
  while (times-- > 0) repeated += text;
  return repeated;
}

}  // namespace Zelk::Testing
