#pragma once

#include <cstdint>
#include <string>

namespace Zelk::Analysis {

/// 64 bits of the digest of the text. They are the same in every run, so that they can be stored.
std::uint64_t FingerprintOf(const std::string& text);

}  // namespace Zelk::Analysis
