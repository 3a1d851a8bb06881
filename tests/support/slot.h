#pragma once

#include <cstddef>
#include <cstring>

namespace Zelk::Testing {

/// Returns the place of a virtual operation among those of its class. In the Itanium ABI, a pointer
/// to it begins with the offset of its slot, plus one unless the machine is an Arm. The division
/// drops that one.
template <typename Operation>
std::size_t Slot(Operation operation) {
  std::size_t offset = 0;
  static_assert(sizeof operation >= sizeof offset);
  std::memcpy(&offset, &operation, sizeof offset);
  return offset / sizeof(void*);
}

}  // namespace Zelk::Testing
