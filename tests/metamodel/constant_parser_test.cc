#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;
using ConstantCategory = Bindings::Metamodel::ConstantValueEnumerations::Category;
using PrimitiveType = Bindings::Metamodel::PrimitiveValueEnumerations::Type;

const std::vector<std::string> kBuiltinNames = {
    "VOID",   "BOOLEAN",   "LONG", "DOUBLE", "STRING",    "BINARY",
    "SECRET", "DATE_TIME", "ID",   "URI",    "ANY_ERROR", "DYNAMIC_STRUCTURE",
    "OPAQUE"};

/// Values of every JSON type.
const std::vector<std::string> kValues = {
    R"("foo")", "null", "true", "7", "-1.5", "{}", R"({"value": "foo"})", "[]", R"(["foo"])"};

std::string Constant(const std::string& category, const std::string& type,
                     const std::string& value) {
  return R"({"name": "A", "documentation": "b", "type": {"category": ")" + category +
         R"(", "type": ")" + type + R"("}, "value": )" + value + "}";
}

/// What comes of a constant: its text, or "none", and the messages.
struct ParsedConstant {
  std::string text;
  Lines messages;
};

bool operator==(const ParsedConstant& left, const ParsedConstant& right) {
  return left.text == right.text && left.messages == right.messages;
}

std::ostream& operator<<(std::ostream& out, const ParsedConstant& constant) {
  return out << constant.text << " " << testing::PrintToString(constant.messages);
}

ParsedConstant ParseConstant(const std::string& json) {
  Errors errors;
  const auto [name, constant] = MetamodelParser::ParseConstant({}, Json(json), errors);
  return {constant ? name + " " + Dump(*constant) : "none", MessageTexts(errors)};
}

TEST(ParseConstant, KeepsTheTextOfAString) {
  EXPECT_EQ(ParseConstant(Constant("PRIMITIVE", "STRING", R"("foo\u0000")")),
            (ParsedConstant{"A constant \"b\" : STRING = PRIMITIVE STRING \"foo\\x00\"\n", {}}));
  EXPECT_EQ(ParseConstant(Constant("primitive", "String", R"("")")),
            (ParsedConstant{"A constant \"b\" : STRING = PRIMITIVE STRING \"\"\n", {}}));
}

TEST(ParseConstant, AcceptsANonStringValueOfAStringWithAMessage) {
  for (const auto& value : kValues) {
    if (value == kValues.front()) continue;
    EXPECT_EQ(
        ParseConstant(Constant("PRIMITIVE", "STRING", value)),
        (ParsedConstant{"A constant \"b\" : STRING = PRIMITIVE none\n", {InvalidField("value")}}))
        << value;
  }
}

TEST(ParseConstant, AcceptsOtherBuiltinTypesWithoutAValue) {
  for (const auto& type : kBuiltinNames) {
    for (const auto& value : kValues) {
      if (type == "STRING") continue;
      EXPECT_EQ(ParseConstant(Constant("PRIMITIVE", type, value)),
                (ParsedConstant{"A constant \"b\" : " + type + " = PRIMITIVE none\n", {}}))
          << type << value;
    }
  }
}

TEST(ParseConstant, IgnoresTheValueOfAList) {
  for (const auto& type : kBuiltinNames) {
    for (const auto& value : kValues) {
      EXPECT_EQ(ParseConstant(Constant("List", type, value)),
                (ParsedConstant{"A constant \"b\" : LIST<" + type + "> = LIST none\n", {}}))
          << type << value;
    }
  }
}

struct BadConstant {
  std::string json;
  std::string message;
};

TEST(ParseConstant, ReportsEachFailureOnce) {
  const std::string begin = R"({"name": "A", "documentation": "", )";
  const std::vector<BadConstant> rows = {
      {"[]", MissingField("name")},
      {R"({"name": "A"})", MissingField("documentation")},
      {begin + R"("value": "foo"})", MissingField("type")},
      {begin + R"("type": "STRING", "value": "foo"})", InvalidField("type")},
      {begin + R"("type": {"type": "STRING"}, "value": "foo"})", MissingField("category")},
      {begin + R"("type": {"category": "LIST"}, "value": "foo"})", MissingField("type")},
      {begin + R"("type": {"category": 0, "type": 4}, "value": "foo"})", InvalidField("category")},
      {begin + R"("type": {"category": "LIST", "type": 4}, "value": "foo"})", InvalidField("type")},
      {begin + R"("type": {"category": "LIST", "type": "STRING"}})", MissingField("value")},
      {begin + R"("type": {"category": "PRIMITIVE", "type": "LONG"}})", MissingField("value")},
      {Constant("FOO", "FOO", "1"), InvalidEnumValue("category")},
      {Constant("LIST", "FOO", "1"), InvalidEnumValue("type")},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ParseConstant(row.json), (ParsedConstant{"none", {row.message}})) << row.json;
  }
}

TEST(ParseConstant, AcceptsNoAliasOfAType) {
  EXPECT_EQ(ParseConstant(Constant("BUILTIN", "STRING", "1")),
            (ParsedConstant{"none", {InvalidEnumValue("category")}}));
  EXPECT_EQ(ParseConstant(Constant("GENERIC", "STRING", "1")),
            (ParsedConstant{"none", {InvalidEnumValue("category")}}));
  for (const auto* type : {"EXCEPTION", "exception", "PRIMITIVE"}) {
    EXPECT_EQ(ParseConstant(Constant("PRIMITIVE", type, "1")),
              (ParsedConstant{"none", {InvalidEnumValue("type")}}))
        << type;
  }
}

TEST(ParseConstant, ReadsTheFirstOfARepeatedValue) {
  const std::string json = R"({"name": "A", "documentation": "b",
      "type": {"category": "PRIMITIVE", "type": "STRING"}, "value": "foo", "value": 1})";
  EXPECT_EQ(ParseConstant(json).text, "A constant \"b\" : STRING = PRIMITIVE STRING \"foo\"\n");
}

TEST(ParseConstantType, ReadsCategoryAndType) {
  Errors errors;
  MetamodelParser::ConstantType type;
  EXPECT_TRUE(MetamodelParser::ParseConstantType({}, Json(R"({"category": "list", "type": "uri"})"),
                                                 type, errors));
  EXPECT_EQ(type.first.Value(), 1);
  EXPECT_EQ(type.second->generic_instantiation->generic_type.Value(), 0);
  EXPECT_EQ(TypeText(type.second), "LIST<URI>");
  EXPECT_TRUE(MetamodelParser::ParseConstantType(
      {}, Json(R"({"category": "Primitive", "type": "VOID"})"), type, errors));
  EXPECT_EQ(type.first.Value(), 0);
  EXPECT_EQ(TypeText(type.second), "VOID");
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(ParsePrimitiveValue, ReadsStringsOnly) {
  Errors errors;
  for (const auto type : {PrimitiveType::BOOLEAN, PrimitiveType::DOUBLE, PrimitiveType::LONG,
                          PrimitiveType::UNKNOWN}) {
    EXPECT_EQ(MetamodelParser::ParsePrimitiveValue(Json(R"("foo")"), "bar", errors, type), nullptr)
        << type;
  }
  EXPECT_EQ(MessageTexts(errors), Lines());
  const auto value =
      MetamodelParser::ParsePrimitiveValue(Json(R"("foo")"), "bar", errors, PrimitiveType::STRING);
  EXPECT_EQ(value->type.Value(), 3);
  EXPECT_EQ(value->string_value.value_or("none"), "foo");
}

TEST(ParsePrimitiveValue, RefusesANonStringForAString) {
  for (const auto* json : {"null", "1", "true", "{}", "[]"}) {
    Errors errors;
    EXPECT_EQ(
        MetamodelParser::ParsePrimitiveValue(Json(json), "foo", errors, PrimitiveType::STRING),
        nullptr)
        << json;
    EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("foo")}) << json;
  }
}

TEST(ParseConstantPrimitiveValue, ReturnsAPrimitiveValueEvenIfEmpty) {
  Errors errors;
  for (const auto* json : {R"("foo")", "1"}) {
    for (const auto type : {PrimitiveType::STRING, PrimitiveType::LONG}) {
      const auto value =
          MetamodelParser::ParseConstantPrimitiveValue(Json(json), "bar", errors, type);
      const bool is_read = *json == '"' && type == PrimitiveType::STRING;
      EXPECT_EQ(value->category, ConstantCategory::PRIMITIVE) << json << type;
      EXPECT_EQ(value->primitive_value != nullptr, is_read) << json << type;
    }
  }
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("bar")});
}

}  // namespace
}  // namespace Zelk::Testing
