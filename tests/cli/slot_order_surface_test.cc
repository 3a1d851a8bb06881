#include <cstddef>
#include <cstring>
#include <vector>

#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/cli/services.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

// Programs call virtual operations by their slot, so the order of the operations never changes.

namespace Zelk::Testing {
namespace {

using Provider::Metadata::Cli::MetadataContainer;

// A pointer to a virtual member holds 1 plus the offset of its slot, in the Itanium ABI.
template <typename Member>
std::size_t Slot(Member member) {
  std::size_t offset = 0;
  static_assert(sizeof(member) >= sizeof(offset));
  std::memcpy(&offset, &member, sizeof(offset));
  return (offset - 1) / sizeof(void*);
}

template <typename... Members>
void ExpectSlots(Members... members) {
  const std::vector<std::size_t> slots = {Slot(members)...};
  for (std::size_t index = 0; index < slots.size(); ++index) {
    EXPECT_EQ(slots[index], index) << "of operation " << index;
  }
}

template <typename Service>
class CliQueryService : public testing::Test {};

using QueryServices =
    testing::Types<::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::AsyncServiceInterface,
                   ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::AsyncServiceInterface,
                   Provider::Metadata::Cli::CommandSvc::AsyncServiceImpl,
                   Provider::Metadata::Cli::NamespaceSvc::AsyncServiceImpl>;
TYPED_TEST_SUITE(CliQueryService, QueryServices, );

TYPED_TEST(CliQueryService, HasItsOperationsInTheirSlots) {
  ExpectSlots(&TypeParam::List, &TypeParam::Get, &TypeParam::Fingerprint);
}

template <typename Service>
class CliSourceService : public testing::Test {};

using SourceServices =
    testing::Types<::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::AsyncServiceInterface,
                   Provider::Metadata::Cli::SourceSvc::AsyncServiceImpl>;
TYPED_TEST_SUITE(CliSourceService, SourceServices, );

TYPED_TEST(CliSourceService, HasItsOperationsInTheirSlots) {
  ExpectSlots(&TypeParam::Create, &TypeParam::Delete, &TypeParam::Get, &TypeParam::List,
              &TypeParam::Reload, &TypeParam::Fingerprint);
}

TEST(CliContainerSlots, AreInTheOrderOfTheOperations) {
  ExpectSlots(&MetadataContainer::CreateSource, &MetadataContainer::DeleteSource,
              &MetadataContainer::ReloadSource, &MetadataContainer::ListSources,
              &MetadataContainer::SourcesInfo, &MetadataContainer::SourceFingerprint,
              &MetadataContainer::ListNamespaces, &MetadataContainer::NamespaceInfo,
              &MetadataContainer::NamespaceFingerprint, &MetadataContainer::ListCommands,
              &MetadataContainer::CommandInfo, &MetadataContainer::CommandFingerprint);
}

}  // namespace
}  // namespace Zelk::Testing
