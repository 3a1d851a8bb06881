#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/cli/services.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "support/virtual_slots.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Cli = Provider::Metadata::Cli;
using Cli::MetadataContainer;

/// A service's generated interface and its implementation.
template <typename InterfaceType, typename ImplType>
struct ServiceTypes {
  using Interface = InterfaceType;
  using Impl = ImplType;
};

using Commands = ServiceTypes<Bindings::Cli::CommandSvc::AsyncServiceInterface,
                              Cli::CommandSvc::AsyncServiceImpl>;
using Namespaces = ServiceTypes<Bindings::Cli::NamespaceSvc::AsyncServiceInterface,
                                Cli::NamespaceSvc::AsyncServiceImpl>;
using SourceTypes =
    ServiceTypes<Bindings::Cli::SourceSvc::AsyncServiceInterface, Cli::SourceSvc::AsyncServiceImpl>;

template <typename Types>
class CliServiceSlots : public testing::Test {};

using AllServices = testing::Types<Commands, Namespaces, SourceTypes>;
TYPED_TEST_SUITE(CliServiceSlots, AllServices, );

TYPED_TEST(CliServiceSlots, AreThoseOfAFinalClassWithOnePointer) {
  using Impl = typename TypeParam::Impl;
  EXPECT_TRUE((std::is_base_of<typename TypeParam::Interface, Impl>::value));
  EXPECT_TRUE(std::is_final<Impl>::value);
  EXPECT_FALSE((std::is_convertible<std::shared_ptr<MetadataContainer>, Impl>::value));
  EXPECT_EQ(sizeof(Impl), sizeof(void*) + sizeof(std::shared_ptr<MetadataContainer>));
}

template <typename Types>
class CliQuerySlots : public testing::Test {};

using QueryServices = testing::Types<Commands, Namespaces>;
TYPED_TEST_SUITE(CliQuerySlots, QueryServices, );

TYPED_TEST(CliQuerySlots, AreListThenGetThenFingerprint) {
  using Interface = typename TypeParam::Interface;
  using Impl = typename TypeParam::Impl;
  ExpectSlots(&Interface::List, &Interface::Get, &Interface::Fingerprint);
  ExpectSlots(&Impl::List, &Impl::Get, &Impl::Fingerprint);
  ExpectNoMoreThan<Interface>(3);
}

TEST(CliSourceSlots, AreCreateDeleteGetListReloadFingerprint) {
  using Interface = SourceTypes::Interface;
  using Impl = SourceTypes::Impl;
  ExpectSlots(&Interface::Create, &Interface::Delete, &Interface::Get, &Interface::List,
              &Interface::Reload, &Interface::Fingerprint);
  ExpectSlots(&Impl::Create, &Impl::Delete, &Impl::Get, &Impl::List, &Impl::Reload,
              &Impl::Fingerprint);
  ExpectNoMoreThan<Interface>(6);
}

TEST(CliContainerSlots, AreTwelveInTheirOrder) {
  ExpectSlots(&MetadataContainer::CreateSource, &MetadataContainer::DeleteSource,
              &MetadataContainer::ReloadSource, &MetadataContainer::ListSources,
              &MetadataContainer::SourcesInfo, &MetadataContainer::SourceFingerprint,
              &MetadataContainer::ListNamespaces, &MetadataContainer::NamespaceInfo,
              &MetadataContainer::NamespaceFingerprint, &MetadataContainer::ListCommands,
              &MetadataContainer::CommandInfo, &MetadataContainer::CommandFingerprint);
}

TEST(CliContainerSlots, EndWithTheDestructor) {
  ExpectNoMoreThan<MetadataContainer>(12);
}

}  // namespace
}  // namespace Zelk::Testing
