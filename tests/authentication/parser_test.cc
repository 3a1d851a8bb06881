#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include "authentication/parsed.h"
#include "support/as_source.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

std::string File(const std::string& parts) {
  return R"({"authentication": {)" + parts + "}}";
}

const Lines kAbsentTables = {MissingField("schemes"), MissingField("operations"),
                             MissingField("services"), MissingField("packages")};

Lines Joined(const std::vector<Lines>& parts) {
  Lines all;
  for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

TEST(AuthenticationFile, MayBeEmpty) {
  const auto parsed = ParseFile(R"({"authentication": {}})");
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "");
  EXPECT_EQ(parsed.messages, (Lines{MissingField("product"), MissingField("component")}));
}

TEST(AuthenticationFile, IsReadAtAllFourLevels) {
  const auto parsed = ParseFile(File(R"("component": )" + Foo(R"(
      "operations": {"vm.power.start": ["x", "y"], "vm.power.stop": []},
      "services": {"vm.power": ["y"]},
      "packages": {"vm": ["x"]})")));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "vm" ["ex"]
    service "vm.power" ["why"@"sm"]
      operation "start" ["ex", "why"@"sm"]
      operation "stop" []
)");
  EXPECT_EQ(parsed.messages, Lines{MissingField("product")});
}

TEST(AuthenticationFile, ReadsTheProductFirst) {
  for (const auto& parts : {R"("product": {"name": "foo"}, "component": {"name": "bar"})",
                            R"("component": {"name": "bar"}, "product": {"name": "foo"})"}) {
    const auto parsed = ParseFile(File(parts));
    EXPECT_TRUE(parsed.accepted) << parts;
    EXPECT_EQ(parsed.components, "component \"foo\"\ncomponent \"bar\"\n") << parts;
    EXPECT_EQ(parsed.messages, Joined({kAbsentTables, kAbsentTables})) << parts;
  }
}

TEST(AuthenticationFile, CallsBackForBothOfTwoComponentsOfOneName) {
  const auto parsed =
      ParseFile(File(R"("product": {"name": "foo"}, "component": {"name": "foo"})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "component \"foo\"\ncomponent \"foo\"\n");
}

TEST(AuthenticationFile, IgnoresUnknownKeysAtEveryLevel) {
  const auto parsed = ParseFile(R"({"foo": 1, "authentication": {"bar": [], "component": {
      "name": "foo", "version": 7,
      "schemes": {"x": {"authenticationScheme": "ex", "type": "sessionless", "baz": {}}},
      "operations": {}, "services": {}, "packages": {}}}})");
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "component \"foo\"\n");
  EXPECT_EQ(parsed.messages, Lines{MissingField("product")});
}

TEST(AuthenticationFile, ReadsTheFirstOfARepeatedFixedKey) {
  const auto parsed = ParseFile(R"({
      "authentication": {"product": {"name": "foo", "name": 1}, "product": 1,
                         "component": {"name": "bar"}, "component": {}},
      "authentication": 1})");
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "component \"foo\"\ncomponent \"bar\"\n");
  EXPECT_EQ(parsed.messages, Joined({kAbsentTables, kAbsentTables}));
}

struct PartsRow {
  const char* product;
  const char* component;
  bool accepted;
  const char* components;
};

// A good part registers "foo" or "bar"; a broken one lacks its name; "" is an absent one.
constexpr char kGoodProduct[] = R"("product": {"name": "foo"})";
constexpr char kGoodComponent[] = R"("component": {"name": "bar"})";
constexpr char kBrokenProduct[] = R"("product": {})";
constexpr char kBrokenComponent[] = R"("component": {})";
const PartsRow kParts[] = {
    {"", "", true, ""},
    {"", kGoodComponent, true, "component \"bar\"\n"},
    {"", kBrokenComponent, false, ""},
    {kGoodProduct, "", true, "component \"foo\"\n"},
    {kGoodProduct, kGoodComponent, true, "component \"foo\"\ncomponent \"bar\"\n"},
    {kGoodProduct, kBrokenComponent, true, "component \"foo\"\n"},
    {kBrokenProduct, "", true, ""},
    {kBrokenProduct, kGoodComponent, true, "component \"bar\"\n"},
    {kBrokenProduct, kBrokenComponent, false, ""},
};

Lines MessagesOf(const std::string& part, const std::string& key) {
  if (part.empty()) return {MissingField(key)};
  return part.find("name") == std::string::npos ? Lines{MissingField("name")} : kAbsentTables;
}

TEST(AuthenticationParts, FailTheFileIfTheComponentIsBrokenAndNoProductIsGood) {
  for (const auto& row : kParts) {
    const std::string both = std::string(row.product) +
                             (*row.product != '\0' && *row.component != '\0' ? ", " : "") +
                             row.component;
    const auto parsed = ParseFile(File(both));
    EXPECT_EQ(parsed.accepted, row.accepted) << both;
    EXPECT_EQ(parsed.components, row.components) << both;
    EXPECT_EQ(parsed.messages,
              Joined({MessagesOf(row.product, "product"), MessagesOf(row.component, "component")}))
        << both;
  }
}

TEST(AuthenticationParts, AreBrokenIfOfAnotherType) {
  for (const auto* value : {"null", "true", "1", "\"foo\"", "[]"}) {
    const auto both =
        ParseFile(File(std::string(R"("product": )") + value + R"(, "component": )" + value));
    EXPECT_FALSE(both.accepted) << value;
    EXPECT_EQ(both.components, "") << value;
    EXPECT_EQ(both.messages, (Lines{InvalidField("product"), InvalidField("component")})) << value;
    const auto component = ParseFile(File(std::string(R"("component": )") + value));
    EXPECT_FALSE(component.accepted) << value;
    EXPECT_EQ(component.components, "") << value;
    EXPECT_EQ(component.messages, (Lines{MissingField("product"), InvalidField("component")}))
        << value;
  }
}

TEST(AuthenticationParts, AcceptANonObjectProductWithoutAComponent) {
  const auto parsed = ParseFile(File(R"("product": 1)"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "");
  EXPECT_EQ(parsed.messages, (Lines{InvalidField("product"), MissingField("component")}));
}

TEST(AuthenticationParts, DoNotShareTheirSchemes) {
  const auto parsed =
      ParseFile(File(R"("product": )" + Foo(R"("packages": {"a": ["x"]})") +
                     R"(, "component": {"name": "bar", "packages": {"b": ["x"]}})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "component \"foo\"\n  package \"a\" [\"ex\"]\n");
  EXPECT_EQ(parsed.messages.back(), UnknownScheme());
}

TEST(AuthenticationParts, MayBeAbsent) {
  std::string components;
  Errors errors;
  EXPECT_TRUE(
      JsonMetadataParser::ParseAuthentication(KeepTexts(components), Testing::Json("{}"), errors));
  EXPECT_EQ(components, "");
  EXPECT_EQ(Testing::MessageTexts(errors),
            (Lines{MissingField("product"), MissingField("component")}));
}

TEST(AuthenticationRoot, IsReportedMissingInANonObject) {
  for (const auto* json : {"{}", "[]", "null", "true", "1", "\"authentication\"",
                           R"([{"authentication": {}}])", R"({"Authentication": {}})"}) {
    const auto parsed = ParseFile(json);
    EXPECT_FALSE(parsed.accepted) << json;
    EXPECT_EQ(parsed.components, "") << json;
    EXPECT_EQ(parsed.messages, Lines{MissingField("authentication")}) << json;
  }
}

TEST(AuthenticationRoot, IsInvalidIfOfAnotherType) {
  for (const auto* value : {"null", "[]", "1", "false", "\"foo\""}) {
    const auto parsed = ParseFile(std::string(R"({"authentication": )") + value + "}");
    EXPECT_FALSE(parsed.accepted) << value;
    EXPECT_EQ(parsed.messages, Lines{InvalidField("authentication")}) << value;
  }
}

struct SyntaxRow {
  const char* json;
  const char* code;
  const char* offset;
};

const SyntaxRow kSyntaxErrors[] = {
    {"", "1", "0"},
    {" \n", "1", "2"},
    {"{} {}", "2", "3"},
    {"foo", "3", "1"},
    {"]", "3", "0"},
    {"{", "4", "1"},
    {R"({"a" 1})", "5", "5"},
    {R"({"a": 1)", "6", "7"},
    {"[1 2]", "7", "3"},
    {R"({"authentication": {"component": {"name": "foo}}})", "11", "49"},
    {R"({"authentication": {},})", "4", "22"},
    {"// foo\n{}", "3", "0"},
};

TEST(AuthenticationSyntaxError, ReportsCodeAndOffset) {
  for (const auto& row : kSyntaxErrors) {
    const auto parsed = ParseFile(row.json);
    EXPECT_FALSE(parsed.accepted) << row.json;
    EXPECT_EQ(parsed.components, "") << row.json;
    EXPECT_EQ(parsed.messages,
              Lines{Testing::MessageText("zelk.metadata.authentication.parse.error",
                                         {row.code, row.offset})})
        << row.json;
  }
}

TEST(AuthenticationSyntaxError, MatchesTheDefaultParser) {
  for (const auto& row : kSyntaxErrors) {
    std::istringstream in(row.json);
    rapidjson::IStreamWrapper wrapper(in);
    rapidjson::Document document;
    document.ParseStream<0>(wrapper);
    EXPECT_EQ(row.code, std::to_string(document.GetParseError())) << row.json;
    EXPECT_EQ(row.offset, std::to_string(document.GetErrorOffset())) << row.json;
  }
}

TEST(AuthenticationSyntaxError, IsTheOnlyMessage) {
  Errors errors;
  std::string components;
  EXPECT_FALSE(
      JsonMetadataParser::LoadMetadata(Testing::AsSource("["), KeepTexts(components), errors));
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_EQ(errors.front().DefaultText(), "Authentication source file parse error : %1% at %2%");
}

TEST(AuthenticationStream, IsReadLikeItsText) {
  std::vector<std::string> texts = {File(R"("component": )" + Foo(R"("packages": {"a": ["x"]})")),
                                    File(kBrokenProduct), "[]", std::string("{\0}", 3)};
  for (const auto& row : kSyntaxErrors) texts.emplace_back(row.json);
  for (const auto& text : texts) {
    std::istringstream in(text);
    std::string components;
    Errors errors;
    const auto expected = ParseFile(text);
    EXPECT_EQ(JsonMetadataParser::LoadMetadata(in, KeepTexts(components), errors),
              expected.accepted)
        << text;
    EXPECT_EQ(components, expected.components) << text;
    EXPECT_EQ(Testing::MessageTexts(errors), expected.messages) << text;
  }
}

TEST(AuthenticationStream, IsReadFromItsCurrentPosition) {
  std::istringstream in("foo {\"authentication\": {}}");
  in.ignore(4);
  std::string components;
  Errors errors;
  EXPECT_TRUE(JsonMetadataParser::LoadMetadata(in, KeepTexts(components), errors));
}

TEST(AuthenticationFile, AppendsToTheMessages) {
  Errors errors = {::Zelk::BaseMessage("foo", "bar")};
  std::string components;
  EXPECT_FALSE(
      JsonMetadataParser::LoadMetadata(Testing::AsSource("{}"), KeepTexts(components), errors));
  EXPECT_EQ(Testing::MessageTexts(errors), (Lines{"foo()", MissingField("authentication")}));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
