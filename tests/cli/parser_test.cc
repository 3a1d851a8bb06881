#include <list>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <zelk/message.h>

#include "cli/metadata_parser.h"
#include "cli/parsed_file.h"
#include "support/as_source.h"
#include "support/json_text.h"
#include "support/small_stack.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Testing::CliInvalidField;
using Testing::CliInvalidNodeType;
using Testing::CliParseError;
using Testing::InvalidField;
using Testing::Json;
using Testing::JsonValuesBut;
using Testing::Lines;
using Testing::MessageTexts;
using Testing::MissingField;
using Testing::ParseFile;

constexpr char kFoo[] = R"({"type": "namespace", "path": "", "name": "foo", "description": "Foo"})";
constexpr char kBar[] = R"({"type": "command", "path": "foo", "name": "bar", "description": "Bar",
    "node_metadata": {"service_id": "baz", "operation_id": "qux"}})";

const Lines kFooAndBar = {R"(namespace :foo "Foo" [])",
                          R"(command foo:bar "Bar" "baz" "qux" none)"};
/// The message of an absent optional member of kBar.
const Lines kBarMessages = {MissingField("formatter"), MissingField("options"),
                            MissingField("output_field_list")};

std::string File(const std::vector<std::string>& nodes) {
  std::string text;
  for (const auto& node : nodes) text += (text.empty() ? "" : ", ") + node;
  return R"({"cli": [)" + text + "]}";
}

TEST(CliFile, MayHaveNoNodes) {
  const auto parsed = ParseFile(File({}));
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, Lines());
  EXPECT_EQ(parsed.messages, Lines());
}

TEST(CliFile, KeepsDocumentOrder) {
  const auto parsed = ParseFile(File({kFoo, kBar, kFoo}));
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, (Lines{kFooAndBar[0], kFooAndBar[1], kFooAndBar[0]}));
  EXPECT_EQ(parsed.messages, kBarMessages);
}

TEST(CliFile, IgnoresUnknownKeys) {
  const auto parsed = ParseFile(R"({"foo": 1, "cli": [
    {"foo": [], "type": "namespace", "path": "", "name": "foo", "description": "Foo",
     "node_metadata": "not looked at", "children": [{"type": 1}]}], "bar": {}})");
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, (Lines{R"(namespace :foo "Foo" [])"}));
  EXPECT_EQ(parsed.messages, Lines());
}

TEST(CliFile, ReadsTheFirstOfARepeatedKey) {
  const auto parsed = ParseFile(R"({"cli": [
    {"type": "namespace", "type": "command", "path": "", "path": 1, "name": "foo", "name": "bar",
     "description": "Foo", "description": null}], "cli": "foo"})");
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, (Lines{R"(namespace :foo "Foo" [])"}));
  EXPECT_EQ(parsed.messages, Lines());
}

TEST(CliFile, KeepsTextsByteForByte) {
  const auto parsed = ParseFile(R"({"cli": [
    {"type": "namespace", "path": " .", "name": "a\u0000b", "description": "\u00e9"}]})");
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, (Lines{std::string("namespace  .:a\0b", 16) + R"( "\xc3\xa9" [])"}));
}

TEST(CliFile, ReportsAMissingRootKey) {
  for (const std::string text :
       {"{}", R"({"Cli": []})", "[]", R"(["cli"])", R"("cli")", "1", "null", "true"}) {
    const auto parsed = ParseFile(text);
    EXPECT_FALSE(parsed.ok) << text;
    EXPECT_EQ(parsed.messages, Lines{MissingField("cli")}) << text;
  }
}

TEST(CliFile, ReportsANonArrayRootWithItsOwnMessage) {
  for (const auto& value : JsonValuesBut("array")) {
    const auto parsed = ParseFile(R"({"cli": )" + value + "}");
    EXPECT_FALSE(parsed.ok) << value;
    EXPECT_EQ(parsed.messages, Lines{CliInvalidField("cli")}) << value;
  }
}

struct SyntaxErrorRow {
  std::string text;
  const char* code;
  const char* offset;
};

TEST(CliFile, ReportsTheCodeAndOffsetOfASyntaxError) {
  const std::vector<SyntaxErrorRow> rows = {
      {"", "1", "0"},
      {" \n", "1", "2"},
      {"{} {}", "2", "3"},
      {"foo", "3", "1"},
      {R"({"cli": ]})", "3", "8"},
      {"{cli: []}", "4", "1"},
      {R"({"cli" [])", "5", "7"},
      {R"({"cli": [] "foo")", "6", "11"},
      {R"({"cli": [)" + std::string(kFoo) + " " + kFoo + "]}", "7", "80"},
      {R"({"cli": "\x"})", "10", "9"},
      {R"({"cli": "foo)", "11", "12"},
      {R"({"cli": 1e999})", "13", "8"},
      {R"({"cli": 1.})", "14", "10"},
  };
  for (const auto& row : rows) {
    const auto parsed = ParseFile(row.text);
    EXPECT_FALSE(parsed.ok) << row.text;
    EXPECT_EQ(parsed.nodes, Lines()) << row.text;
    EXPECT_EQ(parsed.messages, Lines{CliParseError(row.code, row.offset)}) << row.text;
  }
}

TEST(CliFile, IsReadFromAStreamLikeItsText) {
  const std::vector<std::string> texts = {File({}),
                                          File({kFoo, kBar}),
                                          File({kBar, "1", kFoo}),
                                          "{}",
                                          R"({"cli": 1})",
                                          "",
                                          "{] ",
                                          R"({"cli": ["foo)",
                                          File({kFoo}) + std::string(1, '\0') + "foo",
                                          File({kFoo}) + "foo"};
  for (const auto& text : texts) {
    std::istringstream stream(text);
    const auto from_stream = ParseFile(stream);
    const auto from_text = ParseFile(std::string_view(text));
    EXPECT_EQ(from_stream.ok, from_text.ok) << text;
    EXPECT_EQ(from_stream.nodes, from_text.nodes) << text;
    EXPECT_EQ(from_stream.messages, from_text.messages) << text;
  }
}

TEST(CliFile, IsReadFromTheCurrentPositionOfAStream) {
  std::istringstream stream("foo" + File({kFoo}));
  stream.ignore(3);
  const auto parsed = ParseFile(stream);
  EXPECT_TRUE(parsed.ok);
  EXPECT_EQ(parsed.nodes, Lines{kFooAndBar[0]});
}

TEST(CliFile, StopsAtTheFirstInvalidNode) {
  const auto parsed = ParseFile(File({kFoo, kBar, R"({"type": "foo"})", R"({"type": 1})", kFoo}));
  EXPECT_FALSE(parsed.ok);
  EXPECT_EQ(parsed.nodes, kFooAndBar);
  auto messages = kBarMessages;
  messages.push_back(CliInvalidNodeType());
  EXPECT_EQ(parsed.messages, messages);
}

TEST(CliFile, IgnoresDeepNestingWithoutStack) {
  constexpr int kDepth = 100000;
  const std::string nested = std::string(kDepth, '[') + std::string(kDepth, ']');
  Testing::RunOnSmallStack(256 * 1024, [&nested] {
    const auto parsed = ParseFile(R"({"foo": )" + nested + R"(, "cli": [)" + kFoo + "]}");
    EXPECT_TRUE(parsed.ok);
    EXPECT_EQ(parsed.nodes, Lines{kFooAndBar[0]});
  });
}

TEST(CliNode, ReportsTheFirstKeyOfANonObjectAsMissing) {
  for (const auto& value : JsonValuesBut("object")) {
    const auto parsed = ParseFile(File({value}));
    EXPECT_FALSE(parsed.ok) << value;
    EXPECT_EQ(parsed.messages, Lines{MissingField("type")}) << value;
  }
}

TEST(CliNode, ReportsAnUnknownTypeByItsKey) {
  for (const std::string type : {"", "Namespace", "NAMESPACE", "Command", "command ", " namespace",
                                 "type", "namespace\\u0000"}) {
    const auto parsed = ParseFile(File({R"({"type": ")" + type + R"("})"}));
    EXPECT_FALSE(parsed.ok) << type;
    EXPECT_EQ(parsed.messages, Lines{CliInvalidNodeType()}) << type;
  }
}

TEST(CliNode, ReadsTypePathNameDescriptionInOrder) {
  struct Row {
    const char* node;
    Lines messages;
  };

  const std::vector<Row> rows = {
      {R"({})", {MissingField("type")}},
      {R"({"type": "namespace"})", {MissingField("path")}},
      {R"({"type": "namespace", "path": ""})", {MissingField("name")}},
      {R"({"type": "namespace", "path": "", "name": ""})", {MissingField("description")}},
      {R"({"type": "namespace", "path": 1, "name": 1})", {InvalidField("path")}},
      {R"({"type": "command"})", {MissingField("path")}},
      {R"({"type": "command", "path": "", "name": 1})", {InvalidField("name")}},
      {R"({"type": "command", "path": "", "name": "", "node_metadata": 1})",
       {MissingField("description")}},
      {R"({"type": "command", "path": "", "name": "", "description": ""})",
       {MissingField("node_metadata")}},
  };
  for (const auto& row : rows) {
    const auto parsed = ParseFile(File({row.node}));
    EXPECT_FALSE(parsed.ok) << row.node;
    EXPECT_EQ(parsed.nodes, Lines()) << row.node;
    EXPECT_EQ(parsed.messages, row.messages) << row.node;
  }
}

TEST(CliNode, HasNoChildrenAsANamespace) {
  Errors errors;
  using Bindings::Cli::NamespaceSvc::Identity;
  using Bindings::Cli::NamespaceSvc::Info;
  const auto info = MetadataParser::ParseInfoNode<Identity, Info>(
      Json(R"({"path": "foo.bar", "name": "baz", "description": "qux"})"), errors);
  ASSERT_TRUE(info);
  EXPECT_EQ(Testing::CliText(*info), R"(namespace foo.bar:baz "qux" [])");
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(CliNode, DoesNotCallBackIfItsMetadataIsInvalid) {
  Errors errors;
  int calls = 0;
  const auto count = [&calls](const auto&) { ++calls; };
  const auto node = Json(R"({"path": "", "name": "foo", "description": "", "node_metadata": []})");
  EXPECT_FALSE(MetadataParser::ParseCommandNode(node, count, errors));
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("path")});
}

TEST(CliNode, ReportsANonArrayListAsCli) {
  for (const auto& value : JsonValuesBut("array")) {
    Errors errors;
    const auto unused = [](const auto& info) { ADD_FAILURE() << Testing::CliText(*info); };
    EXPECT_FALSE(MetadataParser::FillMaps(Json(value), unused, unused, errors)) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{CliInvalidField("cli")}) << value;
  }
}

TEST(CliParserMessages, HaveDefaultTexts) {
  struct Row {
    const char* text;
    const char* id;
    const char* default_text;
  };

  const std::vector<Row> rows = {
      {"", "zelk.metadata.cli.parse.error", "Cli source file parse error : %1% at %2%"},
      {"{}", "zelk.metadata.json.missing.field", "Json parse missing field: %1%"},
      {R"({"cli": [{"type": 1}]})", "zelk.metadata.json.invalid.field",
       "Json parse invalid field: %1%"},
      {R"({"cli": 1})", "zelk.metadata.cli.json.invalid.field", "Unknown message."},
      {R"({"cli": [{"type": "foo"}]})", "zelk.metadata.cli.json.invalid.node.type",
       "Unknown message."},
  };
  for (const auto& row : rows) {
    Errors errors;
    const auto unused = [](const auto& info) { ADD_FAILURE() << Testing::CliText(*info); };
    EXPECT_FALSE(MetadataParser::LoadMetadata(Testing::AsSource(row.text), unused, unused, errors));
    ASSERT_EQ(errors.size(), 1u) << row.text;
    EXPECT_EQ(errors.front().Id(), row.id) << row.text;
    EXPECT_EQ(errors.front().DefaultText(), row.default_text) << row.text;
  }
}

TEST(CliParserMessages, AreAppended) {
  Errors errors = {CatalogMessage("foo")};
  const auto unused = [](const auto& info) { ADD_FAILURE() << Testing::CliText(*info); };
  EXPECT_FALSE(MetadataParser::LoadMetadata(Testing::AsSource("{}"), unused, unused, errors));
  EXPECT_EQ(MessageTexts(errors), (Lines{"foo()", MissingField("cli")}));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
