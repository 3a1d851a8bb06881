#include "analysis/fingerprint.h"

#include <zelk/md5.h>

namespace Zelk::Analysis {

std::uint64_t FingerprintOf(const std::string& text) {
  ::Zelk::MD5 digest;
  digest.Update(text.data(), text.size());
  std::uint64_t bits = 0;
  for (const char digit : digest.hexdigest().substr(0, 16)) {
    bits = bits << 4U | static_cast<std::uint64_t>(digit <= '9' ? digit - '0' : digit - 'a' + 10);
  }
  return bits;
}

}  // namespace Zelk::Analysis
