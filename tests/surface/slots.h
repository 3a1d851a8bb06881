#pragma once

#include <cstddef>
#include <memory>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/slot.h"

// Programs call virtual operations by their slot, so the order of the operations never changes.

namespace Zelk::Testing {

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

// The operations that services have, in slot order.

struct ListOperation {
  static constexpr std::size_t kCount = 1;

  template <typename Service>
  static void Expect() {
    ExpectSlots(&Service::List);
  }
};

struct LookupOperations {
  static constexpr std::size_t kCount = 2;

  template <typename Service>
  static void Expect() {
    ExpectSlots(&Service::List, &Service::Get);
  }
};

struct FingerprintOperations {
  static constexpr std::size_t kCount = 3;

  template <typename Service>
  static void Expect() {
    ExpectSlots(&Service::List, &Service::Get, &Service::Fingerprint);
  }
};

struct SourceOperations {
  static constexpr std::size_t kCount = 6;

  template <typename Service>
  static void Expect() {
    ExpectSlots(&Service::Create, &Service::Delete, &Service::Get, &Service::List, &Service::Reload,
                &Service::Fingerprint);
  }
};

/// A service of a domain: its operations, its generated interface, its implementation, and the
/// container that it asks.
template <typename OperationsType, typename InterfaceType, typename ImplementationType,
          typename ContainerType>
struct ServiceRow {
  using Operations = OperationsType;
  using Interface = InterfaceType;
  using Implementation = ImplementationType;
  using Container = ContainerType;
};

template <typename Row>
class ServiceSlots : public testing::Test {};

TYPED_TEST_SUITE_P(ServiceSlots);

TYPED_TEST_P(ServiceSlots, KeepTheirOrder) {
  using Operations = typename TypeParam::Operations;
  Operations::template Expect<typename TypeParam::Interface>();
  Operations::template Expect<typename TypeParam::Implementation>();
  ExpectNoMoreThan<typename TypeParam::Interface>(Operations::kCount);
}

TYPED_TEST_P(ServiceSlots, BelongToAFinalClassWithOnePointer) {
  using Implementation = typename TypeParam::Implementation;
  using Pointer = std::shared_ptr<typename TypeParam::Container>;
  EXPECT_TRUE((std::is_base_of<typename TypeParam::Interface, Implementation>::value));
  EXPECT_TRUE(std::is_final<Implementation>::value);
  EXPECT_TRUE((std::is_constructible<Implementation, Pointer>::value));
  EXPECT_FALSE((std::is_convertible<Pointer, Implementation>::value));
  EXPECT_EQ(sizeof(Implementation), sizeof(void*) + sizeof(Pointer));
}

REGISTER_TYPED_TEST_SUITE_P(ServiceSlots, KeepTheirOrder, BelongToAFinalClassWithOnePointer);

}  // namespace Zelk::Testing
