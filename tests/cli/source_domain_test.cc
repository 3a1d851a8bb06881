#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "cli/json_metadata_container.h"
#include "support/as_source.h"
#include "support/cli_text.h"
#include "support/message_texts.h"
#include "support/temp_folder.h"

// What the domain adds to the shared life cycle of sources.

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Bindings::Cli::SourceSvc::CreateSpec;
using ::Com::Orvane::Zelk::Metadata::SourceType;
using Testing::CliText;
using Testing::Lines;

constexpr char kFile[] = R"({"cli": [
  {"type": "command", "path": "foo", "name": "bar", "description": "earlier",
   "node_metadata": {"service_id": "", "operation_id": ""}},
  {"type": "namespace", "path": "", "name": "foo", "description": "Foo"},
  {"type": "command", "path": "foo", "name": "bar", "description": "later",
   "node_metadata": {"service_id": "", "operation_id": ""}}]})";

std::shared_ptr<const CreateSpec> Spec(const std::string& path) {
  return std::make_shared<const CreateSpec>("", SourceType::LOCAL_FILE, path, boost::none);
}

TEST(CliSourceDomain, RegistersNamespacesAndTheLastOfARepeatedCommand) {
  const auto source = std::make_shared<SourceData>(Spec("foo"));
  Errors errors;
  EXPECT_TRUE(SourceDomain::Parse(Testing::AsSource(kFile), source, errors));
  ASSERT_EQ(source->namespaces.size(), 2u);
  EXPECT_EQ(CliText(*source->namespaces.at(SourceData::Str2NsId("foo"))),
            R"(namespace :foo "Foo" [])");
  ASSERT_EQ(source->commands.size(), 1u);
  EXPECT_EQ(CliText(*source->commands.begin()->second), R"(command foo:bar "later" "" "" none)");
}

TEST(CliSourceDomain, SetsThreeFingerprintsToTheDigestOfTheFile) {
  const Testing::TempFolder folder;
  ErrorPtr error;
  const auto source = LoadSource<SourceDomain>(Spec(folder.Write("foo", R"({"cli": []})")), error);
  ASSERT_TRUE(source);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(source->fingerprint, "b09625fbc0bb3879746960f4ad234b8e");
  EXPECT_EQ(source->namespace_fingerprint, source->fingerprint);
  EXPECT_EQ(source->command_fingerprint, source->fingerprint);
}

TEST(CliSourceDomain, ReloadsAnEntryFromItsOwnSpec) {
  const Testing::TempFolder folder;
  ErrorPtr error;
  const auto spec = Spec(folder.Write("foo", R"({"cli": []})"));
  std::pair<const std::string, std::shared_ptr<const SourceData>> entry(
      "bar", LoadSource<SourceDomain>(spec, error));
  folder.Write("foo", kFile);
  reload once;
  once(entry);
  EXPECT_EQ(entry.second->spec, spec);
  EXPECT_EQ(entry.second->namespaces.size(), 2u);
}

TEST(CliSourceDomain, HasItsOwnMessages) {
  EXPECT_EQ((Lines{SourceDomain::kExists, SourceDomain::kNotFound, SourceDomain::kFileNotFound}),
            (Lines{"zelk.metada.cli.source.exists", "zelk.metada.cli.source.not.found",
                   "zelk.metada.cli.source.file.not.found"}));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
