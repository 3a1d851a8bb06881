#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/cli_files.h"
#include "surface/cli_under_test.h"

// What is reported of files that are JSON but not CLI metadata.

namespace Zelk::Testing {
namespace {

using testing::IsEmpty;

struct Failure {
  std::string file;
  Lines error;
};

TEST(CliFailures, ReportMessagesInOrder) {
  const auto invalid_node_type =
      MessageLine("zelk.metadata.cli.json.invalid.node.type", "Unknown message.", {"type"});
  const std::vector<Failure> failures = {
      {CliFile({NamespaceNode("", "foo"), R"({"type": "foo"})"}),
       {kInvalidArgumentError, invalid_node_type}},
      {CliFile({CommandNode("", "foo"), "1"}),
       {kInvalidArgumentError, MissingFieldMessage("formatter"), MissingFieldMessage("options"),
        MissingFieldMessage("output_field_list"), MissingFieldMessage("type")}},
  };
  const CliSources sources;
  for (const auto& failure : failures) {
    EXPECT_EQ(sources.Create("foo", failure.file), failure.error) << failure.file;
    EXPECT_THAT(sources->ListSources(), IsEmpty()) << failure.file;
    EXPECT_THAT(sources->ListNamespaces(), IsEmpty()) << failure.file;
  }
}

}  // namespace
}  // namespace Zelk::Testing
