#include <gtest/gtest.h>

#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "surface/slots.h"

namespace Zelk::Testing {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
namespace Provider = ::Zelk::Provider::Metadata::Cli;
using Container = Provider::MetadataContainer;

TEST(CliContainerSlots, KeepTheirOrder) {
  ExpectSlots(&Container::CreateSource, &Container::DeleteSource, &Container::ReloadSource,
              &Container::ListSources, &Container::SourcesInfo, &Container::SourceFingerprint,
              &Container::ListNamespaces, &Container::NamespaceInfo,
              &Container::NamespaceFingerprint, &Container::ListCommands, &Container::CommandInfo,
              &Container::CommandFingerprint);
}

TEST(CliContainerSlots, EndWithTheDestructor) {
  ExpectNoMoreThan<Container>(12);
}

using Services = testing::Types<
    ServiceRow<FingerprintOperations, Bindings::Cli::CommandSvc::AsyncServiceInterface,
               Provider::CommandSvc::AsyncServiceImpl, Container>,
    ServiceRow<FingerprintOperations, Bindings::Cli::NamespaceSvc::AsyncServiceInterface,
               Provider::NamespaceSvc::AsyncServiceImpl, Container>,
    ServiceRow<SourceOperations, Bindings::Cli::SourceSvc::AsyncServiceInterface,
               Provider::SourceSvc::AsyncServiceImpl, Container>>;
INSTANTIATE_TYPED_TEST_SUITE_P(Cli, ServiceSlots, Services);

}  // namespace
}  // namespace Zelk::Testing
