#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/parsed_file.h"
#include "support/json_text.h"

// Every member of a file taken away and given every wrong type, in a file that has them all.

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Testing::CliInvalidField;
using Testing::InvalidField;
using Testing::JsonValuesBut;
using Testing::Lines;
using Testing::MissingField;
using Testing::ParseFile;
using Testing::With;
using Testing::Without;

constexpr char kWhole[] = R"({"cli": [
  {"type": "namespace", "path": "", "name": "foo", "description": "Foo"},
  {"type": "command", "path": "foo", "name": "bar", "description": "Bar", "node_metadata": {
    "service_id": "svc", "operation_id": "op", "formatter": "table",
    "options": [{"long_option": "baz", "short_option": "b", "field_name": "qux",
                 "description": "Baz", "type": "string", "generic": "list"}],
    "output_field_list": [{"structure_id": "quux", "output_fields": [
      {"field_name": "corge", "display_name": "Corge"}]}]}}]})";

const std::string kMetadata = "/cli/1/node_metadata";
const std::string kOption = kMetadata + "/options/0";
const std::string kOutput = kMetadata + "/output_field_list/0";

const std::vector<std::string> kRequiredStrings = {"/cli/0/type",
                                                   "/cli/0/path",
                                                   "/cli/0/name",
                                                   "/cli/0/description",
                                                   "/cli/1/type",
                                                   "/cli/1/path",
                                                   "/cli/1/name",
                                                   "/cli/1/description",
                                                   kMetadata + "/service_id",
                                                   kMetadata + "/operation_id",
                                                   kOption + "/long_option",
                                                   kOption + "/field_name",
                                                   kOption + "/description",
                                                   kOption + "/type",
                                                   kOption + "/generic",
                                                   kOutput + "/structure_id",
                                                   kOutput + "/output_fields/0/field_name",
                                                   kOutput + "/output_fields/0/display_name"};
const std::vector<std::string> kOptionalStrings = {kMetadata + "/formatter",
                                                   kOption + "/short_option"};
const std::vector<std::string> kOptionalArrays = {
    kMetadata + "/options", kMetadata + "/output_field_list", kOutput + "/output_fields"};

std::string Key(const std::string& pointer) {
  return pointer.substr(pointer.rfind('/') + 1);
}

void ExpectFailure(const std::string& text, const std::string& message) {
  const auto parsed = ParseFile(text);
  EXPECT_FALSE(parsed.ok) << text;
  EXPECT_EQ(parsed.messages, Lines{message}) << text;
}

TEST(CliMembers, LeaveNoMessageIfAllAreValid) {
  const auto parsed = ParseFile(kWhole);
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes.size(), 2u);
  EXPECT_EQ(parsed.messages, Lines());
}

TEST(CliMembers, AreReportedIfRequiredAndAbsent) {
  auto pointers = kRequiredStrings;
  pointers.insert(pointers.end(), {"/cli", kMetadata});
  for (const auto& pointer : pointers) {
    ExpectFailure(Without(kWhole, pointer), MissingField(Key(pointer)));
  }
}

TEST(CliMembers, LeaveAMessageIfOptionalAndAbsent) {
  auto pointers = kOptionalStrings;
  pointers.insert(pointers.end(), kOptionalArrays.begin(), kOptionalArrays.end());
  for (const auto& pointer : pointers) {
    const auto parsed = ParseFile(Without(kWhole, pointer));
    EXPECT_TRUE(parsed.ok) << pointer;
    EXPECT_EQ(parsed.nodes.size(), 2u) << pointer;
    EXPECT_EQ(parsed.messages, Lines{MissingField(Key(pointer))}) << pointer;
  }
}

TEST(CliMembers, AreInvalidIfNotTheExpectedString) {
  auto pointers = kRequiredStrings;
  pointers.insert(pointers.end(), kOptionalStrings.begin(), kOptionalStrings.end());
  for (const auto& pointer : pointers) {
    for (const auto& value : JsonValuesBut("string")) {
      ExpectFailure(With(kWhole, pointer, value), InvalidField(Key(pointer)));
    }
  }
}

TEST(CliMembers, AreInvalidIfNotTheExpectedArray) {
  for (const auto& pointer : kOptionalArrays) {
    for (const auto& value : JsonValuesBut("array")) {
      ExpectFailure(With(kWhole, pointer, value), InvalidField(Key(pointer)));
    }
  }
}

TEST(CliMembers, ReportNonObjectsByTheirOwnWords) {
  struct Row {
    std::string pointer;
    std::string message;
  };

  const std::vector<Row> rows = {
      {"/cli/0", MissingField("type")},
      {"/cli/1", MissingField("type")},
      {kMetadata, CliInvalidField("path")},
      {kOption, CliInvalidField("options_entry")},
      {kOutput, CliInvalidField("options_entry")},
      {kOutput + "/output_fields/0", CliInvalidField("output_fields")},
  };
  for (const auto& row : rows) {
    for (const auto& value : JsonValuesBut("object")) {
      ExpectFailure(With(kWhole, row.pointer, value), row.message);
    }
  }
}

TEST(CliMembers, MayBeEmptyArrays) {
  for (const auto& pointer : kOptionalArrays) {
    const auto parsed = ParseFile(With(kWhole, pointer, "[]"));
    EXPECT_TRUE(parsed.ok) << pointer;
    EXPECT_EQ(parsed.messages, Lines()) << pointer;
  }
}

TEST(RepeatedCliMember, FirstOneWins) {
  for (const auto& pointer : kRequiredStrings) {
    const std::string key = '"' + Key(pointer) + "\": ";
    std::string text = With(kWhole, pointer, R"("\u0001")");
    const std::string written = '"' + Key(pointer) + R"(":"\u0001")";
    const auto at = text.find(written);
    ASSERT_NE(at, std::string::npos) << text;
    text.replace(at, written.size(), key + "0, " + key + R"("command")");
    ExpectFailure(text, InvalidField(Key(pointer)));
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
