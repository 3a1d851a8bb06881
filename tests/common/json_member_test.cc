#include "common/json/json_member.h"

#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

#include "support/json_text.h"
#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

using ::Com::Orvane::Zelk::Metadata::Metamodel::GenericInstantiationEnumerations::GenericType;
using Testing::InvalidEnumValue;
using Testing::InvalidField;
using Testing::Json;
using Testing::Lines;
using Testing::MessageTexts;
using Testing::MissingField;

/// Values of every JSON type but string.
const std::vector<std::string> kNoStrings = {"null", "true", "false", "0",
                                             "-1.5", "{}",   "[]",    R"(["foo"])"};
/// Documents in which no member can be found.
const std::vector<std::string> kWithoutMembers = {"{}",  R"({"bar": "foo"})", "[]", R"("foo")", "1",
                                                  "null"};

std::string Foo(const std::string& value) {
  return R"({"foo": )" + value + "}";
}

TEST(JsonParseString, StoresAString) {
  Errors errors;
  std::string result = "old";
  EXPECT_TRUE(JsonParseString<ParseString>(Json(R"("bar\u0000")"), "foo", result, errors));
  EXPECT_EQ(result, std::string("bar\0", 4));
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(JsonParseString, StoresAnEnumerator) {
  Errors errors;
  GenericType result;
  EXPECT_TRUE(JsonParseString<ParseEnum<GenericType>>(Json(R"("Map")"), "foo", result, errors));
  EXPECT_EQ(result, GenericType::MAP);
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(JsonParseString, ReportsAnUnknownEnumeratorOnce) {
  Errors errors;
  GenericType result;
  EXPECT_FALSE(JsonParseString<ParseEnum<GenericType>>(Json(R"("Bar")"), "foo", result, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")});
}

TEST(JsonParseString, RefusesOtherTypes) {
  for (const auto& json : kNoStrings) {
    Errors errors;
    std::string text = "old";
    GenericType type = GenericType::SET;
    EXPECT_FALSE(JsonParseString<ParseString>(Json(json), "foo", text, errors)) << json;
    EXPECT_FALSE(JsonParseString<ParseEnum<GenericType>>(Json(json), "bar", type, errors)) << json;
    EXPECT_EQ(text, "old") << json;
    EXPECT_EQ(type, GenericType::SET) << json;
    EXPECT_EQ(MessageTexts(errors), (Lines{InvalidField("foo"), InvalidField("bar")})) << json;
  }
}

TEST(JsonMember, ReadsAString) {
  const auto document = Json(R"({"bar": 1, "foo": "baz\u0000", "foo": 2})");
  Errors errors;
  JsonMember<std::string> member(document, "foo", errors);
  EXPECT_TRUE(member.Ok());
  EXPECT_EQ(member.Value(), std::string("baz\0", 4));
  EXPECT_EQ(MessageTexts(errors), Lines());
  EXPECT_EQ(member.Take(), std::string("baz\0", 4));
}

TEST(JsonMember, ReportsAnAbsentStringAsMissing) {
  for (const auto& json : kWithoutMembers) {
    const auto document = Json(json);
    Errors errors;
    const JsonMember<std::string> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << json;
    EXPECT_EQ(member.Value(), "") << json;
    EXPECT_EQ(MessageTexts(errors), Lines{MissingField("foo")}) << json;
  }
}

TEST(JsonMember, ReportsOtherTypesAsInvalid) {
  for (const auto& value : kNoStrings) {
    const auto document = Json(Foo(value));
    Errors errors;
    const JsonMember<std::string> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << value;
    EXPECT_EQ(member.Value(), "") << value;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("foo")}) << value;
  }
}

TEST(JsonMember, ReadsTheFirstOfARepeatedKey) {
  const auto document = Json(R"({"foo": 1, "foo": "bar"})");
  Errors errors;
  const JsonMember<std::string> member(document, "foo", errors);
  EXPECT_FALSE(member.Ok());
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("foo")});
}

TEST(JsonMember, ReadsAnEnumeratorInAnyCase) {
  for (const auto* text : {R"("OPTIONAL")", R"("optional")", R"("Optional")"}) {
    const auto document = Json(Foo(text));
    Errors errors;
    const JsonMember<GenericType> member(document, "foo", errors);
    EXPECT_TRUE(member.Ok()) << text;
    EXPECT_EQ(member.Value(), GenericType::OPTIONAL) << text;
    EXPECT_EQ(MessageTexts(errors), Lines()) << text;
  }
}

TEST(JsonMember, ReportsAnUnknownEnumeratorOnceByTheKey) {
  for (const auto* text : {R"("BAR")", R"("")", R"("foo")", R"("LIST\u0000")"}) {
    const auto document = Json(Foo(text));
    Errors errors;
    const JsonMember<GenericType> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << text;
    EXPECT_EQ(member.Value().Value(), GenericType::UNKNOWN) << text;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")}) << text;
  }
}

TEST(JsonMember, ReportsAnAbsentEnumeratorAsMissing) {
  for (const auto& json : kWithoutMembers) {
    const auto document = Json(json);
    Errors errors;
    const JsonMember<GenericType> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << json;
    EXPECT_EQ(member.Value(), GenericType()) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{MissingField("foo")}) << json;
  }
}

TEST(JsonMember, ReportsANonStringEnumeratorAsInvalid) {
  for (const auto& value : kNoStrings) {
    const auto document = Json(Foo(value));
    Errors errors;
    const JsonMember<GenericType> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << value;
    EXPECT_EQ(member.Value(), GenericType()) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("foo")}) << value;
  }
}

bool ParseAliased(const JsonValue& value, const char* name, GenericType& result, Errors& errors) {
  return ParseAliasedEnum(value, name, "BAR", GenericType::SET, result, errors);
}

TEST(JsonMember, UsesAGivenParser) {
  const auto document = Json(R"({"foo": "bar", "baz": "qux"})");
  Errors errors;
  const JsonMember<GenericType, ParseAliased> member(document, "foo", errors);
  EXPECT_TRUE(member.Ok());
  EXPECT_EQ(member.Value(), GenericType::SET);
  const JsonMember<GenericType, ParseAliased> unknown(document, "baz", errors);
  EXPECT_FALSE(unknown.Ok());
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("baz")});
}

using OptString = boost::optional<std::string>;

TEST(JsonOptMember, ReadsAString) {
  for (const auto* text : {"bar", ""}) {
    const auto document = Json(Foo('"' + std::string(text) + '"'));
    Errors errors;
    const JsonOptMember<OptString> member(document, "foo", errors);
    EXPECT_TRUE(member.Ok()) << text;
    EXPECT_EQ(member.Value(), OptString(text)) << text;
    EXPECT_EQ(MessageTexts(errors), Lines()) << text;
  }
}

TEST(JsonOptMember, SucceedsWithTheMissingFieldMessageIfAbsent) {
  for (const auto& json : kWithoutMembers) {
    const auto document = Json(json);
    Errors errors;
    const JsonOptMember<OptString> member(document, "foo", errors);
    EXPECT_TRUE(member.Ok()) << json;
    EXPECT_EQ(member.Value(), OptString()) << json;
    EXPECT_EQ(MessageTexts(errors), Lines{MissingField("foo")}) << json;
  }
}

TEST(JsonOptMember, RefusesOtherTypes) {
  for (const auto& value : kNoStrings) {
    const auto document = Json(Foo(value));
    Errors errors;
    const JsonOptMember<OptString> member(document, "foo", errors);
    EXPECT_FALSE(member.Ok()) << value;
    EXPECT_EQ(member.Value(), OptString()) << value;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("foo")}) << value;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
