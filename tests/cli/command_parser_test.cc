#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/none.hpp>
#include <gtest/gtest.h>

#include "cli/metadata_parser.h"
#include "cli/parser_messages.h"
#include "support/cli_text.h"
#include "support/json_text.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Bindings::Cli::CommandSvc::FormatterType;
using Bindings::Cli::CommandSvc::GenericType;
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

/// A command that already has what its metadata can replace.
Bindings::Cli::CommandSvc::Info OldCommand() {
  Bindings::Cli::CommandSvc::Info info;
  info.identity = std::make_shared<const Bindings::Cli::CommandSvc::Identity>("foo", "bar");
  info.description = info.service_id = info.operation_id = "old";
  info.options = {std::make_shared<const Bindings::Cli::CommandSvc::OptionInfo>(
      "old", boost::none, "", "", "", GenericType::NONE)};
  info.formatter = FormatterType(FormatterType::XML);
  info.output_field_list = {std::make_shared<const Bindings::Cli::CommandSvc::OutputInfo>(
      "old", std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::OutputFieldInfo>>())};
  return info;
}

/// The lines of the old command from its head (service, operation, formatter) on.
std::string Command(const std::string& head, const std::string& lists) {
  return R"(command foo:bar "old" )" + head + lists;
}

const std::string kOldOption = "\n  option \"old\" none \"\" \"\" \"\" NONE";
const std::string kOldOutput = "\n  output \"old\" []";

TEST(CliCommandMetadata, ReadsEveryKey) {
  Errors errors;
  auto info = OldCommand();
  EXPECT_TRUE(MetadataParser::ParseCommandMetadata(
      Json(R"({"service_id": "svc", "operation_id": "op", "formatter": "table",
               "options": [)" +
           std::string(kOption) + R"(],
               "output_field_list": [{"structure_id": "quux", "output_fields": [
                 {"field_name": "b", "display_name": "B"},
                 {"field_name": "a", "display_name": "A"}]},
                 {"structure_id": "corge", "output_fields": []}]})"),
      info, errors));
  EXPECT_EQ(CliText(info), Command(R"("svc" "op" TABLE)",
                                   "\n  option \"foo\" \"f\" \"bar\" \"Baz\" \"qux\" LIST"
                                   "\n  output \"quux\" [\"b\" as \"B\", \"a\" as \"A\"]"
                                   "\n  output \"corge\" []"));
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(CliCommandMetadata, LeavesMessagesForAbsentOptionalMembers) {
  Errors errors;
  Bindings::Cli::CommandSvc::Info info = OldCommand();
  info.formatter = boost::none;
  EXPECT_TRUE(MetadataParser::ParseCommandMetadata(
      Json(R"({"service_id": "svc", "operation_id": "op"})"), info, errors));
  EXPECT_EQ(CliText(info), Command(R"("svc" "op" none)", ""));
  EXPECT_EQ(MessageTexts(errors), (Lines{MissingField("formatter"), MissingField("options"),
                                         MissingField("output_field_list")}));
}

TEST(CliCommandMetadata, IsReportedAsThePathIfNotAnObject) {
  for (const auto& value : JsonValuesBut("object")) {
    Errors errors;
    auto info = OldCommand();
    EXPECT_FALSE(MetadataParser::ParseCommandMetadata(Json(value), info, errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("path")}) << value;
  }
}

struct FailureRow {
  const char* metadata;
  std::string command;
  std::string message;
};

TEST(CliCommandMetadata, KeepsMembersReadBeforeAFailure) {
  const std::vector<FailureRow> rows = {
      {R"({"service_id": 1, "operation_id": 1})",
       Command(R"("old" "old" XML)", kOldOption + kOldOutput), InvalidField("service_id")},
      {R"({"service_id": "svc", "operation_id": 1, "formatter": 1})",
       Command(R"("svc" "old" XML)", kOldOption + kOldOutput), InvalidField("operation_id")},
      {R"({"service_id": "svc", "operation_id": "op", "formatter": 1, "options": 1})",
       Command(R"("svc" "op" XML)", kOldOption + kOldOutput), InvalidField("formatter")},
      {R"({"service_id": "svc", "operation_id": "op", "formatter": "csv", "options": 1,
           "output_field_list": 1})",
       Command(R"("svc" "op" CSV)", kOldOption + kOldOutput), InvalidField("options")},
      {R"({"service_id": "svc", "operation_id": "op", "formatter": "csv", "options": [],
           "output_field_list": 1})",
       Command(R"("svc" "op" CSV)", kOldOutput), InvalidField("output_field_list")},
  };
  for (const auto& row : rows) {
    Errors errors;
    auto info = OldCommand();
    EXPECT_FALSE(MetadataParser::ParseCommandMetadata(Json(row.metadata), info, errors))
        << row.metadata;
    EXPECT_EQ(CliText(info), row.command) << row.metadata;
    EXPECT_EQ(MessageTexts(errors), Lines{row.message}) << row.metadata;
  }
}

TEST(CliCommandMetadata, KeepsElementsReadBeforeAnInvalidOne) {
  Errors errors;
  auto info = OldCommand();
  EXPECT_FALSE(MetadataParser::ParseCommandMetadata(
      Json(R"({"service_id": "", "operation_id": "", "formatter": "xml", "options": [)" +
           std::string(kOption) + R"(, 1, {}]})"),
      info, errors));
  EXPECT_EQ(CliText(info), Command(R"("" "" XML)", kOldOption + kOldOutput));
  EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("options_entry")});
}

using TextRows = std::vector<std::pair<std::string, std::string>>;

TEST(CliFormatter, IgnoresCaseAndKeepsUnknownTextsInUpperCase) {
  const TextRows rows = {{"SIMPLE", "SIMPLE"},
                         {"simple", "SIMPLE"},
                         {"Table", "TABLE"},
                         {"jSON", "JSON"},
                         {"xml", "XML"},
                         {"csv", "CSV"},
                         {"html", "HTML"},
                         {"", "UNKNOWN \"\""},
                         {"fancy", "UNKNOWN \"FANCY\""},
                         {"table ", "UNKNOWN \"TABLE \""},
                         {"tab", "UNKNOWN \"TAB\""},
                         {"unknown", "UNKNOWN \"UNKNOWN\""}};
  for (const auto& [text, expected] : rows) {
    Errors errors;
    Bindings::Cli::CommandSvc::Info info = OldCommand();
    EXPECT_TRUE(MetadataParser::ParseCommandMetadata(
        Json(R"({"service_id": "", "operation_id": "", "formatter": ")" + text + R"("})"), info,
        errors))
        << text;
    ASSERT_TRUE(info.formatter) << text;
    EXPECT_EQ(Testing::EnumText(*info.formatter), expected) << text;
  }
}

TEST(CliGeneric, IgnoresCaseAndReadsAnEmptyTextAsNone) {
  const TextRows rows = {{"NONE", "NONE"},
                         {"", "NONE"},
                         {"none", "NONE"},
                         {"Optional", "OPTIONAL"},
                         {"list", "LIST"},
                         {"optional_list", "OPTIONAL_LIST"},
                         {"List_Optional", "LIST_OPTIONAL"},
                         {" ", "UNKNOWN \" \""},
                         {"fancy", "UNKNOWN \"FANCY\""},
                         {"optional list", "UNKNOWN \"OPTIONAL LIST\""}};
  for (const auto& [text, expected] : rows) {
    Errors errors;
    const auto option = MetadataParser::ParseOptionInfo(
        Json(Testing::With(kOption, "/generic", '"' + text + '"')), errors);
    ASSERT_TRUE(option) << text;
    EXPECT_EQ(Testing::EnumText(option->generic), expected) << text;
    EXPECT_EQ(MessageTexts(errors), Lines()) << text;
  }
}

TEST(CliGeneric, KeepsNoTextOfAnEmptyText) {
  Errors errors;
  const auto option =
      MetadataParser::ParseOptionInfo(Json(Testing::With(kOption, "/generic", R"("")")), errors);
  ASSERT_TRUE(option);
  EXPECT_EQ(option->generic.Value(), 0);
  EXPECT_EQ(option->generic.Text(), "");
}

TEST(CliEnumerations, HaveSixFormattersAndFiveGenerics) {
  EXPECT_EQ(int{FormatterType::UNKNOWN}, 6);
  EXPECT_EQ(int{GenericType::UNKNOWN}, 5);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
