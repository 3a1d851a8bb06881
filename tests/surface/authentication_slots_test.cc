#include <gtest/gtest.h>

#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/authentication/services.h>

#include "surface/slots.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Provider = ::Zelk::Provider::Metadata::Authentication;
using Container = Provider::MetadataContainer;

TEST(AuthenticationContainerSlots, KeepTheirOrder) {
  ExpectSlots(&Container::CreateSource, &Container::DeleteSource, &Container::ReloadSource,
              &Container::ListSources, &Container::SourcesInfo, &Container::SourceFingerprint,
              &Container::ListComponents, &Container::ComponentInfo,
              &Container::ComponentFingerprint, &Container::ListPackages, &Container::PackageInfo,
              &Container::ListServices, &Container::ServiceInfo, &Container::ListOperations,
              &Container::OperationInfo);
}

TEST(AuthenticationContainerSlots, EndWithTheDestructor) {
  ExpectNoMoreThan<Container>(15);
}

using Services = testing::Types<
    ServiceRow<FingerprintOperations, Bindings::Authentication::ComponentSvc::AsyncServiceInterface,
               Provider::ComponentSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Authentication::PackageSvc::AsyncServiceInterface,
               Provider::PackageSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations, Bindings::Authentication::ServiceSvc::AsyncServiceInterface,
               Provider::ServiceSvc::AsyncServiceImpl, Container>,
    ServiceRow<LookupOperations,
               Bindings::Authentication::Service::OperationSvc::AsyncServiceInterface,
               Provider::Service::OperationSvc::AsyncServiceImpl, Container>,
    ServiceRow<SourceOperations, Bindings::Authentication::SourceSvc::AsyncServiceInterface,
               Provider::SourceSvc::AsyncServiceImpl, Container>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Authentication, ServiceSlots, Services);

}  // namespace
}  // namespace Zelk::Testing
