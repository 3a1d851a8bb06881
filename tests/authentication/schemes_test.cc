#include <string>

#include <gtest/gtest.h>

#include "authentication/parsed.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

using SchemeType = Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType;
using Parser = JsonMetadataParser;
using Testing::Json;
using Testing::MessageTexts;
using Testing::SchemeText;

struct SchemeRow {
  const char* json;
  const char* text;
};

TEST(Scheme, IsReadWithItsTypeAndSessionManager) {
  const SchemeRow rows[] = {
      {R"({"authenticationScheme": "ex", "type": "SESSIONLESS"})", R"("ex")"},
      {R"({"type": "SESSION_AWARE", "sessionManager": "sm", "authenticationScheme": "ex"})",
       R"("ex"@"sm")"},
      {R"({"authenticationScheme": "", "type": "SESSION_AWARE", "sessionManager": ""})",
       R"(""@"")"},
      {R"({"authenticationScheme": "e\u0000x", "type": "SESSION_AWARE",
            "sessionManager": "s\u0000"})",
       R"("e\x00x"@"s\x00")"},
  };
  for (const auto& row : rows) {
    Errors errors;
    const auto scheme = Parser::ParseAuthInfo(Json(row.json), errors);
    ASSERT_NE(scheme, nullptr) << row.json;
    EXPECT_EQ(SchemeText(*scheme), row.text) << row.json;
    EXPECT_EQ(MessageTexts(errors), Lines()) << row.json;
  }
}

TEST(Scheme, IgnoresTheSessionManagerIfSessionless) {
  for (const auto* manager : {R"("sm")", "1", "null", "{}"}) {
    Errors errors;
    const auto scheme = Parser::ParseAuthInfo(
        Json(std::string(R"({"authenticationScheme": "ex", "type": "SESSIONLESS",
                             "sessionManager": )") +
             manager + "}"),
        errors);
    ASSERT_NE(scheme, nullptr) << manager;
    EXPECT_EQ(SchemeText(*scheme), R"("ex")") << manager;
    EXPECT_EQ(MessageTexts(errors), Lines()) << manager;
  }
}

struct BrokenRow {
  const char* json;
  std::string message;
};

const BrokenRow kBrokenSchemes[] = {
    {"{}", MissingField("authenticationScheme")},
    {R"({"type": 1})", MissingField("authenticationScheme")},
    {R"({"authenticationScheme": null, "type": 1})", InvalidField("authenticationScheme")},
    {R"({"authenticationScheme": ["ex"]})", InvalidField("authenticationScheme")},
    {R"({"authenticationScheme": "ex"})", MissingField("type")},
    {R"({"authenticationScheme": "ex", "sessionManager": 1})", MissingField("type")},
    {R"({"authenticationScheme": "ex", "type": 1})", InvalidField("type")},
    {R"({"authenticationScheme": "ex", "type": null})", InvalidField("type")},
    {R"({"authenticationScheme": "ex", "type": "foo"})", InvalidEnumValue("type")},
    {R"({"authenticationScheme": "ex", "type": "foo", "sessionManager": 1})",
     InvalidEnumValue("type")},
    {R"({"authenticationScheme": "ex", "type": "SESSION_AWARE"})", MissingField("sessionManager")},
    {R"({"authenticationScheme": "ex", "type": "sessionaware"})", MissingField("sessionManager")},
    {R"({"authenticationScheme": "ex", "type": "SESSION_AWARE", "sessionManager": null})",
     InvalidField("sessionManager")},
    {R"({"authenticationScheme": "ex", "type": "SessionAware", "sessionManager": {}})",
     InvalidField("sessionManager")},
};

TEST(Scheme, ReportsEachFailureOnce) {
  for (const auto& row : kBrokenSchemes) {
    Errors errors;
    EXPECT_EQ(Parser::ParseAuthInfo(Json(row.json), errors), nullptr) << row.json;
    EXPECT_EQ(MessageTexts(errors), Lines{row.message}) << row.json;
  }
}

TEST(Scheme, ReportsTheFirstKeyOfANonObjectAsMissing) {
  for (const auto* json : {"null", "true", "1", "\"ex\"", "[]", R"([{"type": "SESSIONLESS"}])"}) {
    Errors errors;
    EXPECT_EQ(Parser::ParseAuthInfo(Json(json), errors), nullptr) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{MissingField("authenticationScheme")}) << json;
  }
}

struct TypeRow {
  const char* json;
  SchemeType::Enumerator type;
};

TEST(SchemeTypeText, IgnoresCaseAndHasASecondSpelling) {
  const TypeRow rows[] = {
      {R"("SESSIONLESS")", SchemeType::SESSIONLESS},
      {R"("sessionless")", SchemeType::SESSIONLESS},
      {R"("SessionLess")", SchemeType::SESSIONLESS},
      {R"("SESSION_AWARE")", SchemeType::SESSION_AWARE},
      {R"("session_aware")", SchemeType::SESSION_AWARE},
      {R"("Session_Aware")", SchemeType::SESSION_AWARE},
      {R"("SESSIONAWARE")", SchemeType::SESSION_AWARE},
      {R"("sessionaware")", SchemeType::SESSION_AWARE},
      {R"("sessionAware")", SchemeType::SESSION_AWARE},
  };
  for (const auto& row : rows) {
    Errors errors;
    SchemeType type;
    EXPECT_TRUE(Parser::ParseSchemeTypeEnum(Json(row.json), "type", type, errors)) << row.json;
    EXPECT_EQ(type, row.type) << row.json;
    EXPECT_EQ(MessageTexts(errors), Lines()) << row.json;
  }
}

TEST(SchemeTypeText, IsReportedOnceIfUnknown) {
  for (const auto* json : {R"("foo")", R"("")", R"("SESSION-AWARE")", R"("SESSION_LESS")",
                           R"("SESSIONAWARE ")", R"("SESSIONAWARE\u0000")", R"("UNKNOWN")"}) {
    Errors errors;
    SchemeType type;
    EXPECT_FALSE(Parser::ParseSchemeTypeEnum(Json(json), "type", type, errors)) << json;
    EXPECT_EQ(type.Value(), 2) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("type")}) << json;
  }
}

TEST(SchemeTypes, KeepTheirNumbers) {
  EXPECT_EQ(SchemeType::SESSIONLESS, 0);
  EXPECT_EQ(SchemeType::SESSION_AWARE, 1);
  EXPECT_EQ(SchemeType().Value(), 2);
  EXPECT_STREQ(SchemeType::Strings::values[0], "SESSIONLESS");
  EXPECT_STREQ(SchemeType::Strings::values[1], "SESSION_AWARE");
  EXPECT_EQ(SchemeType::Strings::values[2], nullptr);
}

Parser::SchemeTable Schemes(const std::string& json) {
  Parser::SchemeTable table;
  Errors errors;
  EXPECT_TRUE(Parser::ParseSchemes(Json(json), table, errors)) << json;
  EXPECT_EQ(MessageTexts(errors), Lines()) << json;
  return table;
}

TEST(SchemeTable, KeepsTheLastOfARepeatedKey) {
  const auto table = Schemes(R"({
      "x": {"authenticationScheme": "first", "type": "SESSIONLESS"},
      "y": {"authenticationScheme": "why", "type": "SESSIONLESS"},
      "x": {"authenticationScheme": "second", "type": "SESSIONAWARE", "sessionManager": "sm"}})");
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(SchemeText(*table.at("x")), R"("second"@"sm")");
  EXPECT_EQ(SchemeText(*table.at("y")), R"("why")");
}

TEST(SchemeTable, ComparesKeysPastZeroBytes) {
  const auto table = Schemes(R"({
      "x": {"authenticationScheme": "short", "type": "SESSIONLESS"},
      "x\u0000": {"authenticationScheme": "long", "type": "SESSIONLESS"}})");
  ASSERT_EQ(table.size(), 2U);
  EXPECT_EQ(SchemeText(*table.at("x")), R"("short")");
  EXPECT_EQ(SchemeText(*table.at(std::string("x\0", 2))), R"("long")");
}

TEST(SchemeTable, FailsAtTheFirstInvalidScheme) {
  Parser::SchemeTable table;
  Errors errors;
  EXPECT_FALSE(Parser::ParseSchemes(Json(R"({
      "x": {"authenticationScheme": "ex", "type": "SESSIONLESS"}, "y": 1, "z": {"type": 1}})"),
                                    table, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("authenticationScheme")});
}

TEST(SchemeTable, IsEmptyForANonObject) {
  EXPECT_TRUE(Schemes("{}").empty());
  EXPECT_TRUE(Schemes("[1]").empty());
}

/// Reads one list against the schemes "x", "y" and "" and answers the messages.
Lines ReadList(const std::string& json, bool accepted, Parser::SchemeList& list) {
  const auto table = Schemes(R"({
      "x": {"authenticationScheme": "ex", "type": "SESSIONLESS"},
      "y": {"authenticationScheme": "why", "type": "SESSIONLESS"},
      "": {"authenticationScheme": "empty", "type": "SESSIONLESS"}})");
  Errors errors;
  EXPECT_EQ(Parser::ParseSchemeList(Json(json), table, list, errors), accepted) << json;
  return MessageTexts(errors);
}

TEST(SchemeList, KeepsTheOrderAndRepeatsOfTheArray) {
  const SchemeRow rows[] = {
      {"[]", "[]"},
      {R"(["y"])", R"(["why"])"},
      {R"(["y", "x", "", "y"])", R"(["why", "ex", "empty", "why"])"},
  };
  for (const auto& row : rows) {
    Parser::SchemeList list;
    EXPECT_EQ(ReadList(row.json, true, list), Lines()) << row.json;
    EXPECT_EQ(Testing::SchemesText(list), row.text) << row.json;
  }
}

TEST(SchemeList, SharesTheSchemesOfTheTable) {
  const auto table = Schemes(R"({"x": {"authenticationScheme": "ex", "type": "SESSIONLESS"}})");
  Errors errors;
  Parser::SchemeList list;
  ASSERT_TRUE(Parser::ParseSchemeList(Json(R"(["x", "x"])"), table, list, errors));
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list.front(), table.at("x"));
  EXPECT_EQ(list.back(), table.at("x"));
}

const BrokenRow kBrokenLists[] = {
    {R"("x")", InvalidField("packages")},
    {"null", InvalidField("packages")},
    {R"({"x": "x"})", InvalidField("packages")},
    {"[1]", InvalidField("packages")},
    {R"(["x", null, "z"])", InvalidField("packages")},
    {R"([["x"]])", InvalidField("packages")},
    {R"(["z"])", UnknownScheme()},
    {R"(["x", "z", 1])", UnknownScheme()},
    {R"(["X"])", UnknownScheme()},
    {R"(["x\u0000"])", UnknownScheme()},
    {R"(["id"])", UnknownScheme()},
};

TEST(SchemeList, ReportsOnlyTheFirstInvalidElement) {
  for (const auto& row : kBrokenLists) {
    Parser::SchemeList list;
    EXPECT_EQ(ReadList(row.json, false, list), Lines{row.message}) << row.json;
  }
}

TEST(SchemeList, IsReportedAsPackagesAndIdAtEveryLevel) {
  for (const auto& row : kBrokenLists) {
    const std::string list = row.json;
    const auto operations = ParseComponent(Foo(R"("operations": {"a.b.c": )" + list + "}"));
    EXPECT_FALSE(operations.accepted) << list;
    EXPECT_EQ(operations.messages, Lines{row.message}) << list;
    const auto services = ParseComponent(Foo(R"("services": {"a.b": )" + list + "}"));
    EXPECT_FALSE(services.accepted) << list;
    EXPECT_EQ(services.messages, (Lines{MissingField("operations"), row.message})) << list;
    const auto packages = ParseComponent(Foo(R"("packages": {"a": )" + list + "}"));
    EXPECT_FALSE(packages.accepted) << list;
    EXPECT_EQ(packages.messages,
              (Lines{MissingField("operations"), MissingField("services"), row.message}))
        << list;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
