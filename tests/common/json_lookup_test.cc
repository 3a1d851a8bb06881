#include "common/json/json_lookup.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/json_text.h"
#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

using Testing::InvalidField;
using Testing::Json;
using Testing::JsonText;
using Testing::Lines;
using Testing::MessageTexts;
using Testing::MissingField;

/// What FindMember finds, as JSON; "none" when nothing.
std::string Found(const std::string& json, const char* name) {
  const auto document = Json(json);
  const JsonValue* value = FindMember(document, name);
  return value == nullptr ? "none" : JsonText(*value);
}

TEST(FindMember, FindsAMember) {
  EXPECT_EQ(Found(R"({"foo": 1, "bar": [2], "": 3})", "foo"), "1");
  EXPECT_EQ(Found(R"({"foo": 1, "bar": [2], "": 3})", "bar"), "[2]");
  EXPECT_EQ(Found(R"({"foo": 1, "bar": [2], "": 3})", ""), "3");
}

TEST(FindMember, ComparesWholeNames) {
  for (const auto* name : {"fo", "fooo", "Foo", "foo ", ""}) {
    EXPECT_EQ(Found(R"({"foo": 1})", name), "none") << name;
  }
}

TEST(FindMember, FindsTheFirstOfARepeatedKey) {
  EXPECT_EQ(Found(R"({"bar": 1, "foo": 2, "foo": 3, "foo": 4})", "foo"), "2");
}

TEST(FindMember, ComparesKeysUpToTheirFirstZeroByte) {
  EXPECT_EQ(Found(R"({"foo\u0000bar": 1})", "foo"), "1");
  EXPECT_EQ(Found(R"({"foo\u0000bar": 1, "foo": 2})", "foo"), "1");
  EXPECT_EQ(Found(R"({"\u0000foo": 1})", ""), "1");
  EXPECT_EQ(Found(R"({"\u0000foo": 1})", "foo"), "none");
}

TEST(FindMember, FindsANullMember) {
  EXPECT_EQ(Found(R"({"foo": null})", "foo"), "null");
}

TEST(FindMember, FindsNothingInOtherTypes) {
  for (const auto* json : {"[]", R"([{"foo": 1}])", R"("foo")", "1", "1.5", "true", "null"}) {
    EXPECT_EQ(Found(json, "foo"), "none") << json;
  }
}

TEST(FindMember, ReportsAnAbsentMemberOnce) {
  for (const auto* json : {"{}", R"({"bar": 1})", "[]", R"("foo")", "1", "null"}) {
    const auto document = Json(json);
    Errors errors;
    EXPECT_EQ(FindMember(document, "foo", errors), nullptr) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{MissingField("foo")}) << json;
  }
}

TEST(FindMember, ReportsNothingForAPresentMember) {
  const auto document = Json(R"({"foo": null})");
  Errors errors;
  EXPECT_EQ(FindMember(document, "foo", errors), &document["foo"]);
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(FindMember, AppendsToTheMessages) {
  const auto document = Json("{}");
  Errors errors;
  FindMember(document, "foo", errors);
  FindMember(document, "bar", errors);
  EXPECT_EQ(MessageTexts(errors), (Lines{MissingField("foo"), MissingField("bar")}));
}

TEST(JsonMembers, KeepDocumentOrderAndRepeats) {
  const auto document = Json(R"({"foo": 1, "bar": 2, "foo": 3})");
  std::string text;
  for (const auto& member : JsonMembers(document)) {
    text += ValToString(member.name) + JsonText(member.value);
  }
  EXPECT_EQ(text, "foo1bar2foo3");
}

TEST(JsonMembers, AreEmptyForOtherTypes) {
  for (const auto* json : {"{}", "[1]", R"("foo")", "1", "false", "null"}) {
    const auto document = Json(json);
    const JsonMembers members(document);
    EXPECT_TRUE(members.begin() == members.end()) << json;
  }
}

TEST(CheckType, AcceptsOneTypeOnly) {
  struct Row {
    const char* json;
    bool string, object, array;
  };

  const std::vector<Row> rows = {
      {R"("")", true, false, false},  {"{}", false, true, false},    {"[]", false, false, true},
      {"1", false, false, false},     {"-1.5", false, false, false}, {"true", false, false, false},
      {"false", false, false, false}, {"null", false, false, false},
  };
  for (const auto& row : rows) {
    const auto value = Json(row.json);
    Errors errors;
    EXPECT_EQ(CheckType(value, JsonType::kString, "foo", errors), row.string) << row.json;
    EXPECT_EQ(CheckType(value, JsonType::kObject, "foo", errors), row.object) << row.json;
    EXPECT_EQ(CheckType(value, JsonType::kArray, "foo", errors), row.array) << row.json;
    const auto accepted = static_cast<std::size_t>(row.string + row.object + row.array);
    EXPECT_EQ(MessageTexts(errors), Lines(3 - accepted, InvalidField("foo"))) << row.json;
  }
}

struct LookUpRow {
  const char* json;
  Presence presence;
  bool ok;
  bool found;
  Lines messages;
};

TEST(LookUp, ChecksPresenceAndThenType) {
  const std::vector<LookUpRow> rows = {
      {R"({"foo": {}})", Presence::kRequired, true, true, {}},
      {R"({"foo": {}})", Presence::kOptional, true, true, {}},
      {"{}", Presence::kRequired, false, false, {MissingField("foo")}},
      {"{}", Presence::kOptional, true, false, {MissingField("foo")}},
      {"[]", Presence::kRequired, false, false, {MissingField("foo")}},
      {"[]", Presence::kOptional, true, false, {MissingField("foo")}},
      {R"({"foo": null})", Presence::kRequired, false, true, {InvalidField("foo")}},
      {R"({"foo": null})", Presence::kOptional, false, true, {InvalidField("foo")}},
      {R"({"foo": []})", Presence::kRequired, false, true, {InvalidField("foo")}},
      {R"({"foo": [], "foo": {}})", Presence::kOptional, false, true, {InvalidField("foo")}},
  };
  for (const auto& row : rows) {
    const auto document = Json(row.json);
    Errors errors;
    const auto found = LookUp(document, "foo", JsonType::kObject, row.presence, errors);
    EXPECT_EQ(found.ok, row.ok) << row.json;
    EXPECT_EQ(found.value != nullptr, row.found) << row.json;
    EXPECT_EQ(MessageTexts(errors), row.messages) << row.json;
  }
}

TEST(ValToString, KeepsEveryByte) {
  EXPECT_EQ(ValToString(Json(R"("foo\u0000bar\u0000")")), std::string("foo\0bar\0", 8));
  EXPECT_EQ(ValToString(Json(R"("")")), "");
  EXPECT_EQ(ValToString(Json(R"("\u00e4\n")")), "\xc3\xa4\n");
  EXPECT_EQ(ValToString(Json("\"\xff\"")), "\xff");
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
