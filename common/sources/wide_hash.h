#pragma once

#include <cstdint>

namespace Zelk::Provider::Metadata {

/// 2^64 divided by the golden ratio: an odd number without a pattern in its bits.
constexpr std::uint64_t kSpread = 0x9e3779b97f4a7c15;

/// Returns a hash as 64 bits that all vary. The standard library's hashes have the width of
/// std::size_t, which is 32 bits on some machines.
template <typename Hash>
constexpr std::uint64_t WideHash(Hash hash) {
  return sizeof(Hash) < sizeof(std::uint64_t) ? hash * kSpread : std::uint64_t{hash};
}

}  // namespace Zelk::Provider::Metadata
