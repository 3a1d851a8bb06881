#include <map>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/json/json_member.h"
#include "support/json_text.h"
#include "support/message_texts.h"

namespace Zelk::Provider::Metadata {
namespace {

using Testing::InvalidField;
using Testing::Json;
using Testing::Lines;
using Testing::MessageTexts;
using Testing::MissingField;

using RecordPtr = std::shared_ptr<const std::string>;
using Map = std::map<std::string, RecordPtr>;
using MultiMap = std::multimap<std::string, std::string>;

const std::vector<std::string> kNoObjects = {"null", "true", "0", "-1.5", R"("bar")", "[]", "[{}]"};
const std::vector<std::string> kWithoutMembers = {"{}", R"({"bar": {}})", "[]", R"("foo")", "1"};

std::string Foo(const std::string& value) {
  return R"({"foo": )" + value + "}";
}

/// A record is an object with a "name".
bool ParseRecord(const JsonValue& value, RecordPtr& result, Errors& errors) {
  const JsonMember<std::string> name(value, "name", errors);
  if (name.Ok()) result = std::make_shared<const std::string>(name.Value());
  return name.Ok();
}

/// Every member goes into the map; a member that is not a string ends the read.
template <typename Container>
bool ParseStrings(const JsonValue& value, Container& result, Errors& errors) {
  for (const auto& member : JsonMembers(value)) {
    std::string text;
    if (!JsonParseString<ParseString>(member.value, "member", text, errors)) return false;
    result.emplace(ValToString(member.name), typename Container::mapped_type(text));
  }
  return true;
}

bool ParsePointers(const JsonValue& value, Map& result, Errors& errors) {
  std::map<std::string, std::string> strings;
  const bool ok = ParseStrings(value, strings, errors);
  for (const auto& [key, text] : strings) result[key] = std::make_shared<const std::string>(text);
  return ok;
}

std::string Text(const RecordPtr& record) {
  return record ? *record : "null";
}

std::string Text(const Map& map) {
  std::string text;
  for (const auto& [key, record] : map) text += key + "=" + *record + ";";
  return text;
}

std::string Text(const MultiMap& map) {
  std::string text;
  for (const auto& [key, value] : map) text += key + "=" + value + ";";
  return text;
}

/// What a member helper made of a document.
struct Outcome {
  bool ok;
  std::string text;
  Lines messages;
};

bool operator==(const Outcome& left, const Outcome& right) {
  return left.ok == right.ok && left.text == right.text && left.messages == right.messages;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.ok << " " << outcome.text << " "
             << testing::PrintToString(outcome.messages);
}

template <typename Member, typename Parse>
Outcome Bind(const std::string& json, const Parse& parse) {
  const auto document = Json(json);
  Errors errors;
  const Member member(document, "foo", parse, errors);
  return {member.Ok(), Text(member.Value()), MessageTexts(errors)};
}

Outcome BindRecord(const std::string& json) {
  return Bind<JsonObjectMember<RecordPtr>>(json, ParseRecord);
}

Outcome BindMap(const std::string& json) {
  return Bind<JsonObjectMember<Map>>(json, ParsePointers);
}

Outcome BindOptMap(const std::string& json) {
  return Bind<JsonOptObjectMember<Map>>(json, ParsePointers);
}

Outcome BindOptMultiMap(const std::string& json) {
  return Bind<JsonOptObjectMember<MultiMap>>(json, ParseStrings<MultiMap>);
}

TEST(JsonObjectMember, ReadsARecord) {
  EXPECT_EQ(BindRecord(R"({"foo": {"name": "bar"}, "foo": 1})"), (Outcome{true, "bar", {}}));
}

TEST(JsonObjectMember, FailsIfTheRecordFails) {
  EXPECT_EQ(BindRecord(R"({"foo": {}})"), (Outcome{false, "null", {MissingField("name")}}));
  EXPECT_EQ(BindRecord(R"({"foo": {"name": 1}})"),
            (Outcome{false, "null", {InvalidField("name")}}));
}

TEST(JsonObjectMember, ReadsAMap) {
  EXPECT_EQ(BindMap(R"({"foo": {"b": "1", "a": "2"}})"), (Outcome{true, "a=2;b=1;", {}}));
  EXPECT_EQ(BindMap(R"({"foo": {}})"), (Outcome{true, "", {}}));
}

TEST(JsonObjectMember, KeepsEntriesReadBeforeAFailure) {
  EXPECT_EQ(BindMap(R"({"foo": {"b": "1", "a": 2, "c": 3}})"),
            (Outcome{false, "b=1;", {InvalidField("member")}}));
}

TEST(JsonObjectMember, IsRequired) {
  for (const auto& json : kWithoutMembers) {
    EXPECT_EQ(BindRecord(json), (Outcome{false, "null", {MissingField("foo")}})) << json;
    EXPECT_EQ(BindMap(json), (Outcome{false, "", {MissingField("foo")}})) << json;
  }
}

TEST(JsonObjectMember, RefusesOtherTypes) {
  for (const auto& value : kNoObjects) {
    EXPECT_EQ(BindRecord(Foo(value)), (Outcome{false, "null", {InvalidField("foo")}})) << value;
    EXPECT_EQ(BindMap(Foo(value)), (Outcome{false, "", {InvalidField("foo")}})) << value;
  }
}

TEST(JsonOptObjectMember, ReadsAMap) {
  const std::string json = R"({"foo": {"b": "1", "a": "2", "b": "3"}})";
  EXPECT_EQ(BindOptMap(json), (Outcome{true, "a=2;b=1;", {}}));
  EXPECT_EQ(BindOptMultiMap(json), (Outcome{true, "a=2;b=1;b=3;", {}}));
}

TEST(JsonOptObjectMember, SucceedsWithTheMissingFieldMessageIfAbsent) {
  for (const auto& json : kWithoutMembers) {
    EXPECT_EQ(BindOptMap(json), (Outcome{true, "", {MissingField("foo")}})) << json;
    EXPECT_EQ(BindOptMultiMap(json), (Outcome{true, "", {MissingField("foo")}})) << json;
  }
}

TEST(JsonOptObjectMember, RefusesOtherTypes) {
  for (const auto& value : kNoObjects) {
    EXPECT_EQ(BindOptMap(Foo(value)), (Outcome{false, "", {InvalidField("foo")}})) << value;
    EXPECT_EQ(BindOptMultiMap(Foo(value)), (Outcome{false, "", {InvalidField("foo")}})) << value;
  }
}

TEST(JsonOptObjectMember, FailsIfItsContentFails) {
  const std::string json = R"({"foo": {"b": "1", "b": "2", "a": 3}})";
  EXPECT_EQ(BindOptMap(json), (Outcome{false, "b=1;", {InvalidField("member")}}));
  EXPECT_EQ(BindOptMultiMap(json), (Outcome{false, "b=1;b=2;", {InvalidField("member")}}));
}

/// The parser that a root member is given: it looks for a name and counts its calls.
struct RootParser {
  int* calls;

  bool operator()(const JsonValue& value, Errors& errors) const {
    ++*calls;
    return JsonMember<std::string>(value, "name", errors).Ok();
  }
};

struct RootRow {
  std::string json;
  bool ok;
  int calls;
  Lines messages;
};

TEST(JsonObjectMemberOfNothing, ReturnsTheResultOfItsParser) {
  const std::vector<RootRow> rows = {
      {R"({"foo": {"name": "bar"}})", true, 1, {}},
      {R"({"foo": {}})", false, 1, {MissingField("name")}},
      {R"({"foo": {"name": "bar"}, "foo": 1})", true, 1, {}},
      {"{}", false, 0, {MissingField("foo")}},
      {"[]", false, 0, {MissingField("foo")}},
      {"null", false, 0, {MissingField("foo")}},
      {R"("foo")", false, 0, {MissingField("foo")}},
      {R"({"foo": null})", false, 0, {InvalidField("foo")}},
      {R"({"foo": []})", false, 0, {InvalidField("foo")}},
      {R"({"foo": "bar"})", false, 0, {InvalidField("foo")}},
  };
  for (const auto& row : rows) {
    const auto document = Json(row.json);
    Errors errors;
    int calls = 0;
    EXPECT_EQ(JsonObjectMember<void>(document, "foo", RootParser{&calls}, errors).Ok(), row.ok)
        << row.json;
    EXPECT_EQ(calls, row.calls) << row.json;
    EXPECT_EQ(MessageTexts(errors), row.messages) << row.json;
  }
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
