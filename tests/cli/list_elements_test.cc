#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/metadata_parser.h"
#include "cli/parser_messages.h"
#include "support/cli_text.h"
#include "support/json_text.h"

// The elements of a command's two lists.

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Testing::CliInvalidField;
using Testing::CliText;
using Testing::InvalidField;
using Testing::Json;
using Testing::JsonValuesBut;
using Testing::Lines;
using Testing::MessageTexts;
using Testing::MissingField;

constexpr char kOption[] = R"({"long_option": "foo", "short_option": "f", "field_name": "bar",
    "description": "Baz", "type": "qux", "generic": "list"})";

TEST(CliOption, ReadsItsKeysInOrder) {
  struct Row {
    const char* option;
    Lines messages;
  };

  const std::vector<Row> rows = {
      {R"({})", {MissingField("long_option")}},
      {R"({"long_option": "foo"})", {MissingField("short_option"), MissingField("field_name")}},
      {R"({"long_option": "foo", "short_option": 1})", {InvalidField("short_option")}},
      {R"({"long_option": "foo", "short_option": "f", "field_name": "bar"})",
       {MissingField("description")}},
      {R"({"long_option": "foo", "short_option": "f", "field_name": "bar", "description": ""})",
       {MissingField("type")}},
      {R"({"long_option": "foo", "short_option": "f", "field_name": "bar", "description": "",
           "type": ""})",
       {MissingField("generic")}},
  };
  for (const auto& row : rows) {
    Errors errors;
    EXPECT_FALSE(MetadataParser::ParseOptionInfo(Json(row.option), errors)) << row.option;
    EXPECT_EQ(MessageTexts(errors), row.messages) << row.option;
  }
}

TEST(CliOption, KeepsItsTypeAsWritten) {
  for (const std::string type : {"", "String", "foo.Bar", "no such type", "LIST"}) {
    Errors errors;
    const auto option = MetadataParser::ParseOptionInfo(
        Json(Testing::With(kOption, "/type", '"' + type + '"')), errors);
    ASSERT_TRUE(option) << type;
    EXPECT_EQ(option->type, type);
  }
}

TEST(CliOption, LeavesAMessageWithoutAShortOption) {
  Errors errors;
  const auto option =
      MetadataParser::ParseOptionInfo(Json(Testing::Without(kOption, "/short_option")), errors);
  ASSERT_TRUE(option);
  EXPECT_EQ(CliText(*option), R"(option "foo" none "bar" "Baz" "qux" LIST)");
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("short_option")});
}

TEST(CliOption, KeepsAnEmptyShortOption) {
  Errors errors;
  const auto option = MetadataParser::ParseOptionInfo(
      Json(Testing::With(kOption, "/short_option", R"("")")), errors);
  ASSERT_TRUE(option);
  EXPECT_EQ(CliText(*option), R"(option "foo" "" "bar" "Baz" "qux" LIST)");
}

TEST(CliOption, IsReportedAsOptionsEntryIfNotAnObject) {
  for (const auto& value : JsonValuesBut("object")) {
    Errors errors;
    EXPECT_FALSE(MetadataParser::ParseOptionInfo(Json(value), errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("options_entry")}) << value;
  }
}

TEST(CliOutput, IsReportedAsOptionsEntryIfNotAnObject) {
  for (const auto& value : JsonValuesBut("object")) {
    Errors errors;
    EXPECT_FALSE(MetadataParser::ParseFieldInfo(Json(value), errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("options_entry")}) << value;
  }
}

TEST(CliOutput, LeavesAMessageWithoutFields) {
  Errors errors;
  const auto output = MetadataParser::ParseFieldInfo(Json(R"({"structure_id": "foo"})"), errors);
  ASSERT_TRUE(output);
  EXPECT_EQ(CliText(*output), R"(output "foo" [])");
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("output_fields")});
}

TEST(CliOutput, ReportsNonArrayFieldsWithTheSharedMessage) {
  for (const auto& value : JsonValuesBut("array")) {
    Errors errors;
    const std::string output = R"({"structure_id": "foo", "output_fields": )" + value + "}";
    EXPECT_FALSE(MetadataParser::ParseFieldInfo(Json(output), errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("output_fields")}) << value;
  }
}

TEST(CliOutput, StopsAtTheFirstInvalidField) {
  Errors errors;
  EXPECT_FALSE(MetadataParser::ParseFieldInfo(Json(R"({"structure_id": "foo", "output_fields": [
                {"field_name": "bar", "display_name": "Bar"}, {"field_name": "baz"}, 1]})"),
                                              errors));
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("display_name")});
}

TEST(CliOutput, ReadsItsStructureFirst) {
  Errors errors;
  EXPECT_FALSE(MetadataParser::ParseFieldInfo(Json(R"({"output_fields": 1})"), errors));
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("structure_id")});
}

TEST(CliOutputField, IsReportedByItsArrayIfNotAnObject) {
  for (const auto& value : JsonValuesBut("object")) {
    Errors errors;
    EXPECT_FALSE(MetadataParser::ParseMemberInfo(Json(value), errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("output_fields")}) << value;
  }
}

TEST(CliOutputField, ReadsItsNameFirst) {
  Errors errors;
  EXPECT_FALSE(MetadataParser::ParseMemberInfo(Json(R"({"display_name": 1})"), errors));
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("field_name")});
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
