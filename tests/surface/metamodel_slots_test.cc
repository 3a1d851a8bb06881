#include <gtest/gtest.h>

#include <zelk/provider/metadata/metamodel/metadata_container.h>
#include <zelk/provider/metadata/metamodel/services.h>

#include "surface/slots.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Provider = ::Zelk::Provider::Metadata::Metamodel;
using Container = Provider::MetadataContainer;

TEST(MetamodelContainerSlots, KeepTheirOrder) {
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

using Services = testing::Types<
    ServiceRow<FingerprintOperations, Bindings::Metamodel::ComponentSvc::AsyncServiceInterface,
               Provider::ComponentSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Metamodel::EnumerationSvc::AsyncServiceInterface,
               Provider::EnumerationSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Metamodel::PackageSvc::AsyncServiceInterface,
               Provider::PackageSvc::AsyncServiceImpl, Container>,
    ServiceRow<ListOperation, Bindings::Metamodel::ResourceSvc::AsyncServiceInterface,
               Provider::ResourceSvc::AsyncServiceImpl, Container>,
    ServiceRow<ListOperation, Bindings::Metamodel::Resource::ModelSvc::AsyncServiceInterface,
               Provider::Resource::ModelSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Metamodel::ServiceSvc::AsyncServiceInterface,
               Provider::ServiceSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Metamodel::Service::OperationSvc::AsyncServiceInterface,
               Provider::Service::OperationSvc::AsyncServiceImpl, Container>,
    ServiceRow<ListOperation, Bindings::Metamodel::Service::HiddenSvc::AsyncServiceInterface,
               Provider::Service::HiddenSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Metamodel::StructureSvc::AsyncServiceInterface,
               Provider::StructureSvc::AsyncServiceImpl, Container>,
    ServiceRow<SourceOperations, Bindings::Metamodel::SourceSvc::AsyncServiceInterface,
               Provider::SourceSvc::AsyncServiceImpl, Container>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Metamodel, ServiceSlots, Services);

}  // namespace
}  // namespace Zelk::Testing
