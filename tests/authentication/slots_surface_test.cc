#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "authentication/provider.h"
#include "support/virtual_slots.h"

namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace AuthProvider = Zelk::Testing::AuthProvider;
using Container = AuthProvider::MetadataContainer;

using Zelk::Testing::ExpectNoMoreThan;
using Zelk::Testing::ExpectSlots;

TEST(ContainerSlots, AreFifteenInTheirOrder) {
  ExpectSlots(&Container::CreateSource, &Container::DeleteSource, &Container::ReloadSource,
              &Container::ListSources, &Container::SourcesInfo, &Container::SourceFingerprint,
              &Container::ListComponents, &Container::ComponentInfo,
              &Container::ComponentFingerprint, &Container::ListPackages, &Container::PackageInfo,
              &Container::ListServices, &Container::ServiceInfo, &Container::ListOperations,
              &Container::OperationInfo);
}

TEST(ContainerSlots, EndWithTheDestructor) {
  ExpectNoMoreThan<Container>(15);
}

/// A service's generated interface and its implementation.
template <typename InterfaceType, typename ImplType>
struct ServiceTypes {
  using Interface = InterfaceType;
  using Impl = ImplType;
};

using Components = ServiceTypes<Bindings::Authentication::ComponentSvc::AsyncServiceInterface,
                                AuthProvider::ComponentSvc::AsyncServiceImpl>;
using Packages = ServiceTypes<Bindings::Authentication::PackageSvc::AsyncServiceInterface,
                              AuthProvider::PackageSvc::AsyncServiceImpl>;
using Services = ServiceTypes<Bindings::Authentication::ServiceSvc::AsyncServiceInterface,
                              AuthProvider::ServiceSvc::AsyncServiceImpl>;
using Operations =
    ServiceTypes<Bindings::Authentication::Service::OperationSvc::AsyncServiceInterface,
                 AuthProvider::Service::OperationSvc::AsyncServiceImpl>;
using SourceTypes = ServiceTypes<Bindings::Authentication::SourceSvc::AsyncServiceInterface,
                                 AuthProvider::SourceSvc::AsyncServiceImpl>;

template <typename Types>
class AuthenticationServiceSlots : public testing::Test {};

using AllServices = testing::Types<Components, Packages, Services, Operations, SourceTypes>;
TYPED_TEST_SUITE(AuthenticationServiceSlots, AllServices, );

TYPED_TEST(AuthenticationServiceSlots, AreThoseOfAFinalClassWithOnePointer) {
  using Interface = typename TypeParam::Interface;
  using Impl = typename TypeParam::Impl;
  EXPECT_TRUE((std::is_base_of<Interface, Impl>::value));
  EXPECT_TRUE(std::is_final<Impl>::value);
  EXPECT_TRUE(std::is_abstract<Interface>::value);
  EXPECT_TRUE(std::has_virtual_destructor<Interface>::value);
  EXPECT_FALSE((std::is_convertible<std::shared_ptr<Container>, Impl>::value));
  EXPECT_EQ(sizeof(Impl), sizeof(void*) + sizeof(std::shared_ptr<Container>));
}

template <typename Types>
class AuthenticationLookupSlots : public testing::Test {};

using LookupServices = testing::Types<Packages, Services, Operations>;
TYPED_TEST_SUITE(AuthenticationLookupSlots, LookupServices, );

TYPED_TEST(AuthenticationLookupSlots, AreListThenGet) {
  using Interface = typename TypeParam::Interface;
  using Impl = typename TypeParam::Impl;
  ExpectSlots(&Interface::List, &Interface::Get);
  ExpectSlots(&Impl::List, &Impl::Get);
  ExpectNoMoreThan<Interface>(2);
}

TEST(AuthenticationComponentSlots, AreListThenGetThenFingerprint) {
  using Interface = Components::Interface;
  using Impl = Components::Impl;
  ExpectSlots(&Interface::List, &Interface::Get, &Interface::Fingerprint);
  ExpectSlots(&Impl::List, &Impl::Get, &Impl::Fingerprint);
  ExpectNoMoreThan<Interface>(3);
}

TEST(AuthenticationSourceSlots, AreCreateDeleteGetListReloadFingerprint) {
  using Interface = SourceTypes::Interface;
  using Impl = SourceTypes::Impl;
  ExpectSlots(&Interface::Create, &Interface::Delete, &Interface::Get, &Interface::List,
              &Interface::Reload, &Interface::Fingerprint);
  ExpectSlots(&Impl::Create, &Impl::Delete, &Impl::Get, &Impl::List, &Impl::Reload,
              &Impl::Fingerprint);
  ExpectNoMoreThan<Interface>(6);
}

}  // namespace
