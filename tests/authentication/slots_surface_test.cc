#include <cstddef>
#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

#include "authentication/provider.h"

namespace {

namespace Auth = Zelk::Testing::Auth;
namespace AuthProvider = Zelk::Testing::AuthProvider;
using Container = AuthProvider::MetadataContainer;

// The place of a virtual operation among those of its class. A pointer to such a member holds one
// plus the offset of its slot in the table of virtual functions, in the first of its two words.
template <typename Operation>
std::ptrdiff_t Slot(Operation operation) {
  std::ptrdiff_t words[2] = {};
  static_assert(sizeof operation == sizeof words, "a pointer to member is two words");
  std::memcpy(words, &operation, sizeof words);
  return (words[0] - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(ContainerSlots, OfSourcesComeFirst) {
  EXPECT_EQ(Slot(&Container::CreateSource), 0);
  EXPECT_EQ(Slot(&Container::DeleteSource), 1);
  EXPECT_EQ(Slot(&Container::ReloadSource), 2);
  EXPECT_EQ(Slot(&Container::ListSources), 3);
  EXPECT_EQ(Slot(&Container::SourcesInfo), 4);
  EXPECT_EQ(Slot(&Container::SourceFingerprint), 5);
}

TEST(ContainerSlots, OfQueriesFollowFromComponentsToOperations) {
  EXPECT_EQ(Slot(&Container::ListComponents), 6);
  EXPECT_EQ(Slot(&Container::ComponentInfo), 7);
  EXPECT_EQ(Slot(&Container::ComponentFingerprint), 8);
  EXPECT_EQ(Slot(&Container::ListPackages), 9);
  EXPECT_EQ(Slot(&Container::PackageInfo), 10);
  EXPECT_EQ(Slot(&Container::ListServices), 11);
  EXPECT_EQ(Slot(&Container::ServiceInfo), 12);
  EXPECT_EQ(Slot(&Container::ListOperations), 13);
  EXPECT_EQ(Slot(&Container::OperationInfo), 14);
}

/// A service's generated interface and its implementation.
template <typename InterfaceType, typename ImplType>
struct ServiceTypes {
  using Interface = InterfaceType;
  using Impl = ImplType;
};

using Components = ServiceTypes<Auth::ComponentSvc::AsyncServiceInterface,
                                AuthProvider::ComponentSvc::AsyncServiceImpl>;
using Packages = ServiceTypes<Auth::PackageSvc::AsyncServiceInterface,
                              AuthProvider::PackageSvc::AsyncServiceImpl>;
using Services = ServiceTypes<Auth::ServiceSvc::AsyncServiceInterface,
                              AuthProvider::ServiceSvc::AsyncServiceImpl>;
using Operations = ServiceTypes<Auth::Service::OperationSvc::AsyncServiceInterface,
                                AuthProvider::Service::OperationSvc::AsyncServiceImpl>;
using SourceTypes =
    ServiceTypes<Auth::SourceSvc::AsyncServiceInterface, AuthProvider::SourceSvc::AsyncServiceImpl>;

template <typename Types>
class AuthenticationServiceSlots : public testing::Test {};

using AllServices = testing::Types<Components, Packages, Services, Operations, SourceTypes>;
TYPED_TEST_SUITE(AuthenticationServiceSlots, AllServices, );

TYPED_TEST(AuthenticationServiceSlots, OfTheImplementationAreThoseOfTheInterface) {
  using Interface = typename TypeParam::Interface;
  using Impl = typename TypeParam::Impl;
  EXPECT_TRUE((std::is_base_of<Interface, Impl>::value));
  EXPECT_TRUE(std::is_final<Impl>::value);
  EXPECT_TRUE(std::is_abstract<Interface>::value);
  EXPECT_TRUE(std::has_virtual_destructor<Interface>::value);
  EXPECT_FALSE((std::is_convertible<std::shared_ptr<Container>, Impl>::value));
  EXPECT_EQ(sizeof(Impl), sizeof(void*) + sizeof(std::shared_ptr<Container>));
  EXPECT_EQ(Slot(&Impl::List), Slot(&Interface::List));
  EXPECT_EQ(Slot(&Impl::Get), Slot(&Interface::Get));
}

template <typename Types>
class AuthenticationQuerySlots : public testing::Test {};

using QueryServices = testing::Types<Components, Packages, Services, Operations>;
TYPED_TEST_SUITE(AuthenticationQuerySlots, QueryServices, );

TYPED_TEST(AuthenticationQuerySlots, AreListThenGet) {
  EXPECT_EQ(Slot(&TypeParam::Interface::List), 0);
  EXPECT_EQ(Slot(&TypeParam::Interface::Get), 1);
}

TEST(AuthenticationComponentSlots, HaveTheFingerprintThird) {
  EXPECT_EQ(Slot(&Components::Interface::Fingerprint), 2);
  EXPECT_EQ(Slot(&Components::Impl::Fingerprint), 2);
}

template <typename Types>
class AuthenticationSourceSlots : public testing::Test {};

using BothSourceClasses =
    testing::Types<typename SourceTypes::Interface, typename SourceTypes::Impl>;
TYPED_TEST_SUITE(AuthenticationSourceSlots, BothSourceClasses, );

TYPED_TEST(AuthenticationSourceSlots, AreInTheirOrder) {
  EXPECT_EQ(Slot(&TypeParam::Create), 0);
  EXPECT_EQ(Slot(&TypeParam::Delete), 1);
  EXPECT_EQ(Slot(&TypeParam::Get), 2);
  EXPECT_EQ(Slot(&TypeParam::List), 3);
  EXPECT_EQ(Slot(&TypeParam::Reload), 4);
  EXPECT_EQ(Slot(&TypeParam::Fingerprint), 5);
}

}  // namespace
