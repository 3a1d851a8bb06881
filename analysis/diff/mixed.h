#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace Zelk::Analysis::Diff {

/// Both numbers in one. Equal within one run only.
inline std::uint64_t Mixed(std::uint64_t left, std::uint64_t right) {
  constexpr std::uint64_t kFactor = 0x9e3779b97f4a7c15;
  left = (left ^ right) * kFactor;
  return left ^ left >> 32U;
}

inline std::uint64_t Mixed(std::uint64_t left, std::string_view text) {
  return Mixed(left, std::hash<std::string_view>()(text));
}

}  // namespace Zelk::Analysis::Diff
