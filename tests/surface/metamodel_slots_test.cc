#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "support/virtual_slots.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Provider = ::Zelk::Provider::Metadata::Metamodel;
using Container = Provider::MetadataContainer;

TEST(MetamodelContainerSlots, AreTwentyTwoInTheirOrder) {
  ExpectSlots(&Container::CreateSource, &Container::DeleteSource, &Container::ReloadSource,
              &Container::ListSources, &Container::SourcesInfo, &Container::SourceFingerprint,
              &Container::ListComponents, &Container::ComponentInfo,
              &Container::ComponentFingerprint, &Container::ListPackages, &Container::PackageInfo,
              &Container::ListServices, &Container::ServiceInfo, &Container::ListOperations,
              &Container::OperationInfo, &Container::ListHiddens, &Container::ListEnumerations,
              &Container::EnumerationInfo, &Container::ListStructures, &Container::StructureInfo,
              &Container::ListResources, &Container::ListModels);
}

TEST(MetamodelContainerSlots, EndWithTheDestructor) {
  ExpectNoMoreThan<Container>(22);
}

/// A service's generated interface and its implementation.
template <typename InterfaceClass, typename ImplementationClass>
struct ServicePair {
  using Interface = InterfaceClass;
  using Implementation = ImplementationClass;
};

using Components = ServicePair<Bindings::Metamodel::ComponentSvc::AsyncServiceInterface,
                               Provider::ComponentSvc::AsyncServiceImpl>;
using Enumerations = ServicePair<Bindings::Metamodel::EnumerationSvc::AsyncServiceInterface,
                                 Provider::EnumerationSvc::AsyncServiceImpl>;
using Packages = ServicePair<Bindings::Metamodel::PackageSvc::AsyncServiceInterface,
                             Provider::PackageSvc::AsyncServiceImpl>;
using Resources = ServicePair<Bindings::Metamodel::ResourceSvc::AsyncServiceInterface,
                              Provider::ResourceSvc::AsyncServiceImpl>;
using Models = ServicePair<Bindings::Metamodel::Resource::ModelSvc::AsyncServiceInterface,
                           Provider::Resource::ModelSvc::AsyncServiceImpl>;
using Services = ServicePair<Bindings::Metamodel::ServiceSvc::AsyncServiceInterface,
                             Provider::ServiceSvc::AsyncServiceImpl>;
using Operations = ServicePair<Bindings::Metamodel::Service::OperationSvc::AsyncServiceInterface,
                               Provider::Service::OperationSvc::AsyncServiceImpl>;
using Hidden = ServicePair<Bindings::Metamodel::Service::HiddenSvc::AsyncServiceInterface,
                           Provider::Service::HiddenSvc::AsyncServiceImpl>;
using Structures = ServicePair<Bindings::Metamodel::StructureSvc::AsyncServiceInterface,
                               Provider::StructureSvc::AsyncServiceImpl>;
using SourcesPair = ServicePair<Bindings::Metamodel::SourceSvc::AsyncServiceInterface,
                                Provider::SourceSvc::AsyncServiceImpl>;

template <typename Pair>
class MetamodelServiceSlots : public testing::Test {};

using AllServices = testing::Types<Components, Enumerations, Packages, Resources, Models, Services,
                                   Operations, Hidden, Structures, SourcesPair>;
TYPED_TEST_SUITE(MetamodelServiceSlots, AllServices, );

TYPED_TEST(MetamodelServiceSlots, AreThoseOfAFinalClassWithOnePointer) {
  using Implementation = typename TypeParam::Implementation;
  EXPECT_TRUE((std::is_base_of<typename TypeParam::Interface, Implementation>::value));
  EXPECT_TRUE(std::is_final<Implementation>::value);
  EXPECT_FALSE((std::is_convertible<std::shared_ptr<Container>, Implementation>::value));
  EXPECT_EQ(sizeof(Implementation), sizeof(void*) + sizeof(std::shared_ptr<Container>));
}

template <typename Pair>
class MetamodelListSlots : public testing::Test {};

using ListServices = testing::Types<Resources, Models, Hidden>;
TYPED_TEST_SUITE(MetamodelListSlots, ListServices, );

TYPED_TEST(MetamodelListSlots, AreOneForList) {
  ExpectSlots(&TypeParam::Interface::List);
  ExpectSlots(&TypeParam::Implementation::List);
  ExpectNoMoreThan<typename TypeParam::Interface>(1);
}

template <typename Pair>
class MetamodelLookupSlots : public testing::Test {};

using LookupServices = testing::Types<Enumerations, Packages, Services, Operations, Structures>;
TYPED_TEST_SUITE(MetamodelLookupSlots, LookupServices, );

TYPED_TEST(MetamodelLookupSlots, AreListThenGet) {
  using Interface = typename TypeParam::Interface;
  using Implementation = typename TypeParam::Implementation;
  ExpectSlots(&Interface::List, &Interface::Get);
  ExpectSlots(&Implementation::List, &Implementation::Get);
  ExpectNoMoreThan<Interface>(2);
}

TEST(MetamodelComponentSlots, AreListThenGetThenFingerprint) {
  using Interface = Components::Interface;
  using Implementation = Components::Implementation;
  ExpectSlots(&Interface::List, &Interface::Get, &Interface::Fingerprint);
  ExpectSlots(&Implementation::List, &Implementation::Get, &Implementation::Fingerprint);
  ExpectNoMoreThan<Interface>(3);
}

TEST(MetamodelSourceSlots, AreCreateDeleteGetListReloadFingerprint) {
  using Interface = SourcesPair::Interface;
  using Implementation = SourcesPair::Implementation;
  ExpectSlots(&Interface::Create, &Interface::Delete, &Interface::Get, &Interface::List,
              &Interface::Reload, &Interface::Fingerprint);
  ExpectSlots(&Implementation::Create, &Implementation::Delete, &Implementation::Get,
              &Implementation::List, &Implementation::Reload, &Implementation::Fingerprint);
  ExpectNoMoreThan<Interface>(6);
}

}  // namespace
}  // namespace Zelk::Testing
