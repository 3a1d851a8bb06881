#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

// Programs call virtual operations by their slot, so the order of the operations never changes.

namespace Zelk::Testing {

/// A pointer to a virtual member holds one plus the offset of its slot, in the Itanium ABI.
template <typename Member>
std::size_t Slot(Member member) {
  std::size_t offset = 0;
  static_assert(sizeof member >= sizeof offset);
  std::memcpy(&offset, &member, sizeof offset);
  return (offset - 1) / sizeof(void*);
}

/// The members are the operations in the slots 0, 1, 2 and so on.
template <typename... Members>
void ExpectSlots(Members... members) {
  const std::vector<std::size_t> slots = {Slot(members)...};
  for (std::size_t index = 0; index < slots.size(); ++index) {
    EXPECT_EQ(slots[index], index) << "of operation " << index;
  }
}

/// The class is abstract, has that many operations and nothing virtual after them but its
/// destructor, which takes two slots.
template <typename Class>
void ExpectNoMoreThan(std::size_t operations) {
  struct Derived : Class {
    virtual void Next();
  };

  EXPECT_EQ(Slot(&Derived::Next), operations + 2);
  EXPECT_TRUE(std::has_virtual_destructor<Class>::value);
  EXPECT_TRUE(std::is_abstract<Class>::value);
}

}  // namespace Zelk::Testing
