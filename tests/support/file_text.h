#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace Zelk::Testing {

/// The bytes of a file that a test needs.
inline std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace Zelk::Testing
