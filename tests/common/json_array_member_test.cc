#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
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
using List = std::list<RecordPtr>;
using Map = std::map<std::string, RecordPtr>;

const std::vector<std::string> kNoArrays = {"null", "true", "0", "-1.5", R"("bar")", "{}"};
const std::vector<std::string> kWithoutMembers = {"{}", R"({"bar": []})", "[]", "[[]]", "1"};

std::string Foo(const std::string& value) {
  return R"({"foo": )" + value + "}";
}

/// An element is an object with a "value".
RecordPtr ParseElement(const JsonValue& value, Errors& errors) {
  const JsonMember<std::string> text(value, "value", errors);
  return text.Ok() ? std::make_shared<const std::string>(text.Value()) : nullptr;
}

/// The same with a "name" as its key.
std::pair<std::string, RecordPtr> ParseNamed(const JsonValue& value, Errors& errors) {
  const JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  return {name.Value(), ParseElement(value, errors)};
}

/// What a helper made of a document: the values it holds, in order, with their keys.
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

std::string Text(const List& list) {
  std::string text;
  for (const auto& record : list) text += *record + ";";
  return text;
}

std::string Text(const Map& map) {
  std::string text;
  for (const auto& [key, record] : map) text += key + "=" + *record + ";";
  return text;
}

template <typename Member, typename Parse>
Outcome Bind(const std::string& json, const Parse& parse) {
  const auto document = Json(json);
  Errors errors;
  const Member member(document, "foo", parse, errors);
  return {member.Ok(), Text(member.Value()), MessageTexts(errors)};
}

Outcome BindList(const std::string& json) {
  return Bind<JsonArrayMember<List>>(json, ParseElement);
}

Outcome BindOptList(const std::string& json) {
  return Bind<JsonOptArrayMember<List>>(json, ParseElement);
}

Outcome BindMap(const std::string& json) {
  return Bind<JsonArrayMember<Map>>(json, ParseNamed);
}

Outcome BindOptMap(const std::string& json) {
  return Bind<JsonOptArrayMember<Map>>(json, ParseNamed);
}

template <typename Container, typename Parse>
Outcome ParseArray(const std::string& json, Container container, const Parse& parse) {
  Errors errors;
  const bool ok = JsonParseArray(Json(json), "foo", parse, container, errors);
  return {ok, Text(container), MessageTexts(errors)};
}

const std::string kThree = R"([{"value": "c"}, {"value": "a"}, {"value": "c"}])";
const std::string kThreeNamed =
    R"([{"name": "y", "value": "1"}, {"name": "x", "value": "2"}, {"name": "y", "value": "3"}])";

TEST(JsonArrayMember, KeepsDocumentOrder) {
  EXPECT_EQ(BindList(Foo(kThree)), (Outcome{true, "c;a;c;", {}}));
  EXPECT_EQ(BindOptList(Foo(kThree)), (Outcome{true, "c;a;c;", {}}));
}

TEST(JsonArrayMember, KeepsTheFirstElementOfARepeatedKey) {
  EXPECT_EQ(BindMap(Foo(kThreeNamed)), (Outcome{true, "x=2;y=1;", {}}));
  EXPECT_EQ(BindOptMap(Foo(kThreeNamed)), (Outcome{true, "x=2;y=1;", {}}));
}

TEST(JsonArrayMember, SucceedsForAnEmptyArray) {
  EXPECT_EQ(BindList(Foo("[]")), (Outcome{true, "", {}}));
  EXPECT_EQ(BindOptList(Foo("[]")), (Outcome{true, "", {}}));
  EXPECT_EQ(BindMap(Foo("[]")), (Outcome{true, "", {}}));
  EXPECT_EQ(BindOptMap(Foo("[]")), (Outcome{true, "", {}}));
}

TEST(JsonArrayMember, IsRequired) {
  for (const auto& json : kWithoutMembers) {
    EXPECT_EQ(BindList(json), (Outcome{false, "", {MissingField("foo")}})) << json;
    EXPECT_EQ(BindMap(json), (Outcome{false, "", {MissingField("foo")}})) << json;
  }
}

TEST(JsonOptArrayMember, SucceedsWithTheMissingFieldMessageIfAbsent) {
  for (const auto& json : kWithoutMembers) {
    EXPECT_EQ(BindOptList(json), (Outcome{true, "", {MissingField("foo")}})) << json;
    EXPECT_EQ(BindOptMap(json), (Outcome{true, "", {MissingField("foo")}})) << json;
  }
}

TEST(JsonArrayMember, RefusesOtherTypes) {
  for (const auto& value : kNoArrays) {
    const Outcome refused{false, "", {InvalidField("foo")}};
    EXPECT_EQ(BindList(Foo(value)), refused) << value;
    EXPECT_EQ(BindOptList(Foo(value)), refused) << value;
    EXPECT_EQ(BindMap(Foo(value)), refused) << value;
    EXPECT_EQ(BindOptMap(Foo(value)), refused) << value;
  }
}

TEST(JsonArrayMember, StopsAtTheFirstInvalidListElement) {
  const std::string json = Foo(R"([{"value": "b"}, {"value": "a"}, {"value": 1}, {}])");
  const Outcome stopped{false, "b;a;", {InvalidField("value")}};
  EXPECT_EQ(BindList(json), stopped);
  EXPECT_EQ(BindOptList(json), stopped);
}

TEST(JsonArrayMember, StopsAtTheFirstInvalidMapElement) {
  const std::string json =
      Foo(R"([{"name": "y", "value": "1"}, {"name": "x"}, {"name": "z", "value": "3"}, {}])");
  const Outcome stopped{false, "y=1;", {MissingField("value")}};
  EXPECT_EQ(BindMap(json), stopped);
  EXPECT_EQ(BindOptMap(json), stopped);
}

TEST(JsonArrayMember, ReportsTheFirstKeyOfANonObjectAsMissing) {
  for (const auto* element : {"null", "1", R"("value")", "[]", "true"}) {
    const std::string json = Foo("[" + std::string(element) + "]");
    EXPECT_EQ(BindList(json), (Outcome{false, "", {MissingField("value")}})) << element;
    EXPECT_EQ(BindMap(json), (Outcome{false, "", {MissingField("name")}})) << element;
  }
}

TEST(JsonArrayMember, ParsesEveryElementOfARepeatedKey) {
  const std::string json = Foo(R"([{"name": "x", "value": "1"}, {"name": "x", "value": 2}])");
  EXPECT_EQ(BindMap(json), (Outcome{false, "x=1;", {InvalidField("value")}}));
}

TEST(JsonArrayMember, KeepsZeroBytesInKeys) {
  const std::string json =
      Foo(R"([{"name": "x\u0000b", "value": "1"}, {"name": "x\u0000a", "value": "2"}])");
  const std::string text = std::string("x\0a=2;", 6) + std::string("x\0b=1;", 6);
  EXPECT_EQ(BindMap(json), (Outcome{true, text, {}}));
}

TEST(JsonParseArray, AppendsToAListInOrder) {
  const List before = {std::make_shared<const std::string>("old")};
  EXPECT_EQ(ParseArray(kThree, before, ParseElement), (Outcome{true, "old;c;a;c;", {}}));
}

TEST(JsonParseArray, KeepsEntriesAlreadyInAMap) {
  const Map before = {{"x", std::make_shared<const std::string>("old")}};
  EXPECT_EQ(ParseArray(kThreeNamed, before, ParseNamed), (Outcome{true, "x=old;y=1;", {}}));
}

TEST(JsonParseArray, RefusesOtherTypes) {
  for (const auto& value : kNoArrays) {
    const Outcome refused{false, "", {InvalidField("foo")}};
    EXPECT_EQ(ParseArray(value, List(), ParseElement), refused) << value;
    EXPECT_EQ(ParseArray(value, Map(), ParseNamed), refused) << value;
  }
}

TEST(JsonParseArray, StopsAtTheFirstInvalidElement) {
  EXPECT_EQ(ParseArray(R"([{"value": "a"}, {}, 1])", List(), ParseElement),
            (Outcome{false, "a;", {MissingField("value")}}));
  EXPECT_EQ(ParseArray(R"([{"name": "x", "value": "a"}, {"name": 1}, 1])", Map(), ParseNamed),
            (Outcome{false, "x=a;", {InvalidField("name")}}));
}

}  // namespace
}  // namespace Zelk::Provider::Metadata
