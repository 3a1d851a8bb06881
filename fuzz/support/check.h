#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace Zelk::Fuzzing {

/// What a fuzzer was given, as text.
inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the process, which is what a fuzzer takes for a finding, when a promise does not hold.
inline void Check(bool holds, const std::string& promise) {
  if (holds) return;
  std::cerr << "broken promise: " << promise << std::endl;
  std::abort();
}

/// The same for two texts that should be one.
inline void CheckSame(const std::string& found, const std::string& expected,
                      const std::string& promise) {
  if (found == expected) return;
  Check(false, promise + "\n--- found\n" + found + "\n--- expected\n" + expected);
}

}  // namespace Zelk::Fuzzing
