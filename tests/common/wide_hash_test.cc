#include "common/sources/wide_hash.h"

#include <cstdint>
#include <set>

#include <gtest/gtest.h>

namespace Zelk::Provider::Metadata {
namespace {

TEST(WideHash, KeepsAHashOf64Bits) {
  EXPECT_EQ(WideHash(std::uint64_t{0x0123456789abcdef}), 0x0123456789abcdefU);
}

TEST(WideHash, SpreadsAHashOf32BitsOverItsUpperHalf) {
  std::set<std::uint64_t> upper_bytes;
  for (std::uint32_t hash = 0; hash < 256 * 16; ++hash) upper_bytes.insert(WideHash(hash) >> 56);
  EXPECT_EQ(upper_bytes.size(), 256U);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
