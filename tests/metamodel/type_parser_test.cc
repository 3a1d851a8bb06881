#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;
using Category = Bindings::Metamodel::TypeEnumerations::Category;
using GenericType = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
using TypePtr = std::shared_ptr<const Bindings::Metamodel::Type>;

/// What comes of a type object: its text, or "none", and the messages.
struct ParsedType {
  std::string text;
  Lines messages;
};

bool operator==(const ParsedType& left, const ParsedType& right) {
  return left.text == right.text && left.messages == right.messages;
}

std::ostream& operator<<(std::ostream& out, const ParsedType& type) {
  return out << type.text << " " << testing::PrintToString(type.messages);
}

ParsedType ParseType(const std::string& json) {
  Errors errors;
  TypePtr type;
  const bool ok = MetamodelParser::ParseType({}, Json(json), type, errors);
  EXPECT_EQ(ok, type != nullptr) << json;
  return {type ? TypeText(type) : "none", MessageTexts(errors)};
}

std::string Builtin(const std::string& name) {
  return R"({"category": "BUILTIN", "primitive_type": ")" + name + R"("})";
}

std::string UserDefined(const std::string& type, const std::string& name) {
  return R"({"category": "USER_DEFINED", "user_defined_type": ")" + type +
         R"(", "user_defined_type_name": ")" + name + R"("})";
}

std::string Generic(const std::string& name, const std::string& element) {
  return R"({"category": "GENERIC", "generic_type": ")" + name + R"(", "element_type": )" +
         element + "}";
}

std::string Map(const std::string& key, const std::string& value) {
  return R"({"category": "GENERIC", "generic_type": "MAP", "map_key_type": )" + key +
         R"(, "map_value_type": )" + value + "}";
}

const std::vector<std::string> kBuiltinNames = {
    "VOID",   "BOOLEAN",   "LONG", "DOUBLE", "STRING",    "BINARY",
    "SECRET", "DATE_TIME", "ID",   "URI",    "ANY_ERROR", "DYNAMIC_STRUCTURE",
    "OPAQUE"};

TEST(ParseType, ReadsEveryBuiltinType) {
  for (const auto& name : kBuiltinNames) {
    EXPECT_EQ(ParseType(Builtin(name)), (ParsedType{name, {}})) << name;
  }
}

TEST(ParseType, ReadsEnumeratorsInAnyCase) {
  EXPECT_EQ(ParseType(R"({"category": "builtin", "primitive_type": "date_Time"})"),
            (ParsedType{"DATE_TIME", {}}));
  EXPECT_EQ(ParseType(R"({"category": "User_Defined", "user_defined_type": "a",
                          "user_defined_type_name": "b"})"),
            (ParsedType{"\"a\":\"b\"", {}}));
  EXPECT_EQ(ParseType(R"({"category": "generic", "generic_type": "optional",
                          "element_type": {"category": "Primitive", "primitive_type": "id"}})"),
            (ParsedType{"OPTIONAL<ID>", {}}));
}

TEST(ParseType, AcceptsPrimitiveAsTheBuiltinCategory) {
  for (const std::string category : {"PRIMITIVE", "primitive", "Primitive"}) {
    EXPECT_EQ(ParseType(R"({"category": ")" + category + R"(", "primitive_type": "LONG"})"),
              (ParsedType{"LONG", {}}))
        << category;
  }
}

TEST(ParseType, AcceptsExceptionAsTheTypeOfAnyError) {
  for (const auto* name : {"EXCEPTION", "exception", "Exception"}) {
    EXPECT_EQ(ParseType(Builtin(name)), (ParsedType{"ANY_ERROR", {}})) << name;
  }
}

TEST(ParseType, SpellsOutStructureAndEnumeration) {
  EXPECT_EQ(ParseType(UserDefined("Structure", "foo")),
            (ParsedType{R"("com.orvane.zelk.structure":"foo")", {}}));
  EXPECT_EQ(ParseType(UserDefined("Enumeration", "foo")),
            (ParsedType{R"("com.orvane.zelk.enumeration":"foo")", {}}));
}

TEST(ParseType, KeepsOtherUserDefinedTypesAsWritten) {
  for (const std::string type : {"structure", "STRUCTURE", "enumeration", "Structures",
                                 "Structure ", "com.orvane.zelk.structure", "foo.bar", ""}) {
    EXPECT_EQ(ParseType(UserDefined(type, "Structure")),
              (ParsedType{"\"" + type + "\":\"Structure\"", {}}))
        << type;
  }
  EXPECT_EQ(ParseType(UserDefined("Structure\\u0000", "a\\u0000b")),
            (ParsedType{R"("Structure\x00":"a\x00b")", {}}));
}

TEST(ParseType, ReadsEveryGenericType) {
  const std::string id = Builtin("ID");
  EXPECT_EQ(ParseType(Generic("LIST", id)), (ParsedType{"LIST<ID>", {}}));
  EXPECT_EQ(ParseType(Generic("OPTIONAL", id)), (ParsedType{"OPTIONAL<ID>", {}}));
  EXPECT_EQ(ParseType(Generic("SET", id)), (ParsedType{"SET<ID>", {}}));
  EXPECT_EQ(ParseType(Map(id, Builtin("URI"))), (ParsedType{"MAP<ID, URI>", {}}));
}

TEST(ParseType, ReadsNestedTypes) {
  const std::string info = UserDefined("Structure", "info");
  const std::string color = UserDefined("Enumeration", "color");
  EXPECT_EQ(ParseType(Map(Builtin("STRING"), Generic("LIST", info))),
            (ParsedType{R"(MAP<STRING, LIST<"com.orvane.zelk.structure":"info">>)", {}}));
  EXPECT_EQ(ParseType(Map(Map(color, Builtin("ID")), Map(Generic("SET", color), Builtin("URI")))),
            (ParsedType{R"(MAP<MAP<"com.orvane.zelk.enumeration":"color", ID>, )"
                        R"(MAP<SET<"com.orvane.zelk.enumeration":"color">, URI>>)",
                        {}}));
  EXPECT_EQ(
      ParseType(Generic("OPTIONAL",
                        Generic("LIST", Generic("OPTIONAL", Map(Builtin("ID"), Builtin("LONG")))))),
      (ParsedType{"OPTIONAL<LIST<OPTIONAL<MAP<ID, LONG>>>>", {}}));
}

TEST(ParseType, ReadsOnlyTheKeysOfItsCategory) {
  const std::string other_keys =
      R"(, "primitive_type": "ID", "user_defined_type": "foo", "user_defined_type_name": "bar",
         "generic_type": "SET", "element_type": {"category": "BUILTIN", "primitive_type": "URI"},
         "map_key_type": 1, "map_value_type": 2})";
  EXPECT_EQ(ParseType(R"({"category": "BUILTIN")" + other_keys), (ParsedType{"ID", {}}));
  EXPECT_EQ(ParseType(R"({"category": "USER_DEFINED")" + other_keys),
            (ParsedType{"\"foo\":\"bar\"", {}}));
  EXPECT_EQ(ParseType(R"({"category": "GENERIC")" + other_keys), (ParsedType{"SET<URI>", {}}));
}

TEST(ParseType, ReadsTheFirstOfARepeatedKey) {
  EXPECT_EQ(ParseType(R"({"category": "BUILTIN", "category": "GENERIC", "primitive_type": "ID",
                          "primitive_type": "FOO"})"),
            (ParsedType{"ID", {}}));
}

struct BadType {
  std::string json;
  std::string message;
};

void ExpectFailures(const std::vector<BadType>& rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(ParseType(row.json), (ParsedType{"none", {row.message}})) << row.json;
  }
}

TEST(ParseType, ReportsEachFailureOfASimpleTypeOnce) {
  ExpectFailures({
      {"{}", MissingField("category")},
      {"[]", MissingField("category")},
      {"null", MissingField("category")},
      {R"({"category": 1})", InvalidField("category")},
      {R"({"category": "FOO", "primitive_type": "FOO"})", InvalidEnumValue("category")},
      {R"({"category": "BUILTIN"})", MissingField("primitive_type")},
      {R"({"category": "BUILTIN", "primitive_type": null})", InvalidField("primitive_type")},
      {Builtin("FOO"), InvalidEnumValue("primitive_type")},
      {R"({"category": "USER_DEFINED"})", MissingField("user_defined_type")},
      {R"({"category": "USER_DEFINED", "user_defined_type": {}})",
       InvalidField("user_defined_type")},
      {R"({"category": "USER_DEFINED", "user_defined_type": "foo"})",
       MissingField("user_defined_type_name")},
      {R"({"category": "USER_DEFINED", "user_defined_type": "foo", "user_defined_type_name": 1})",
       InvalidField("user_defined_type_name")},
  });
}

TEST(ParseType, ReportsEachFailureOfAGenericTypeOnce) {
  const std::string id = Builtin("ID");
  ExpectFailures({
      {R"({"category": "GENERIC"})", MissingField("generic_type")},
      {R"({"category": "GENERIC", "generic_type": []})", InvalidField("generic_type")},
      {Generic("FOO", id), InvalidEnumValue("generic_type")},
      {R"({"category": "GENERIC", "generic_type": "SET"})", MissingField("element_type")},
      {Generic("SET", "[]"), InvalidField("element_type")},
      {Generic("SET", "{}"), MissingField("category")},
      {R"({"category": "GENERIC", "generic_type": "MAP"})", MissingField("map_key_type")},
      {R"({"category": "GENERIC", "generic_type": "MAP", "map_key_type": )" + id + "}",
       MissingField("map_value_type")},
      {Map("null", "null"), InvalidField("map_key_type")},
      {Map(id, "null"), InvalidField("map_value_type")},
      {Map(id, "{}"), MissingField("category")},
  });
}

TEST(ParseType, IgnoresMapTypesOfListsAndElementTypesOfMaps) {
  const std::string id = Builtin("ID");
  EXPECT_EQ(ParseType(Generic("MAP", id)), (ParsedType{"none", {MissingField("map_key_type")}}));
  std::string list = Map(id, id);
  list.replace(list.find("MAP"), 3, "LIST");
  EXPECT_EQ(ParseType(list), (ParsedType{"none", {MissingField("element_type")}}));
}

TEST(ParseType, ReadsAMapsKeyTypeBeforeItsValueType) {
  const std::string bad_key = Generic("FOO", "{}");
  const std::string bad_value = Builtin("FOO");
  EXPECT_EQ(ParseType(Map(bad_key, bad_value)),
            (ParsedType{"none", {InvalidEnumValue("generic_type")}}));
  EXPECT_EQ(ParseType(Map(Builtin("ID"), bad_value)),
            (ParsedType{"none", {InvalidEnumValue("primitive_type")}}));
  // The value type is not even looked for.
  EXPECT_EQ(ParseType(R"({"category": "GENERIC", "generic_type": "MAP", "map_key_type": {}})"),
            (ParsedType{"none", {MissingField("category")}}));
}

TEST(ParseType, ReadsANestedKeyTypeBeforeTheValueType) {
  const std::string deep_key = Map(Builtin("ID"), Generic("LIST", Builtin("FOO")));
  EXPECT_EQ(ParseType(Map(deep_key, "1")),
            (ParsedType{"none", {InvalidEnumValue("primitive_type")}}));
  const std::string good_key = Map(Builtin("ID"), Generic("LIST", Builtin("ID")));
  EXPECT_EQ(ParseType(Map(good_key, "1")), (ParsedType{"none", {InvalidField("map_value_type")}}));
}

TEST(ParseType, ReportsANestedFailureOnce) {
  const std::vector<std::function<std::string(const std::string&)>> around = {
      [](const std::string& type) { return Generic("LIST", type); },
      [](const std::string& type) { return Map(type, Builtin("FOO")); },
      [](const std::string& type) { return Map(Builtin("ID"), type); },
      [](const std::string& type) { return Map(Generic("SET", type), "null"); }};
  for (std::size_t outer = 0; outer < around.size(); ++outer) {
    for (std::size_t inner = 0; inner < around.size(); ++inner) {
      const std::string json = around[outer](around[inner](R"({"category": "foo"})"));
      EXPECT_EQ(ParseType(json), (ParsedType{"none", {InvalidEnumValue("category")}}))
          << outer << " around " << inner;
    }
  }
}

TEST(ParseType, AcceptsEachAliasOnlyInItsPlace) {
  ExpectFailures({
      {R"({"category": "EXCEPTION", "primitive_type": "ID"})", InvalidEnumValue("category")},
      {Builtin("PRIMITIVE"), InvalidEnumValue("primitive_type")},
      {Generic("PRIMITIVE", Builtin("ID")), InvalidEnumValue("generic_type")},
      {Generic("EXCEPTION", Builtin("ID")), InvalidEnumValue("generic_type")},
  });
}

TEST(ParseUserDefinedType, IgnoresTheCategory) {
  Errors errors;
  const auto type = MetamodelParser::ParseUserDefinedType(
      Json(R"({"category": "FOO", "user_defined_type": "a", "user_defined_type_name": "b"})"),
      errors);
  EXPECT_EQ(TypeText(type), "\"a\":\"b\"");
  EXPECT_EQ(MetamodelParser::ParseUserDefinedType(Json("{}"), errors), nullptr);
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("user_defined_type")});
}

TEST(ParseGenericType, IgnoresTheCategory) {
  Errors errors;
  const auto type =
      MetamodelParser::ParseGenericType({},
                                        Json(R"({"generic_type": "SET", "element_type": )" +
                                             Map(Builtin("ID"), Builtin("URI")) + "}"),
                                        errors);
  EXPECT_EQ(TypeText(type), "SET<MAP<ID, URI>>");
  EXPECT_EQ(MetamodelParser::ParseGenericType({}, Json(Builtin("ID")), errors), nullptr);
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("generic_type")});
}

TEST(ParseGenericType, FailsIfANestedTypeFails) {
  Errors errors;
  EXPECT_EQ(MetamodelParser::ParseGenericType({}, Json(Map(Builtin("ID"), "{}")), errors), nullptr);
  EXPECT_EQ(MetamodelParser::ParseGenericType({}, Json(Generic("LIST", "1")), errors), nullptr);
  EXPECT_EQ(MessageTexts(errors), (Lines{MissingField("category"), InvalidField("element_type")}));
}

TEST(ParseCategoryEnum, ReadsTheCategoriesAndTheAlias) {
  Errors errors;
  Category category;
  EXPECT_TRUE(MetamodelParser::ParseCategoryEnum(Json(R"("Primitive")"), "foo", category, errors));
  EXPECT_EQ(category, Category::BUILTIN);
  EXPECT_TRUE(MetamodelParser::ParseCategoryEnum(Json(R"("generic")"), "foo", category, errors));
  EXPECT_EQ(category, Category::GENERIC);
  EXPECT_FALSE(MetamodelParser::ParseCategoryEnum(Json(R"("bar")"), "foo", category, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")});
}

TEST(ParseBinEnum, ReadsTheBuiltinTypesAndTheAlias) {
  Errors errors;
  BuiltinType type;
  EXPECT_TRUE(MetamodelParser::ParseBinEnum(Json(R"("Exception")"), "foo", type, errors));
  EXPECT_EQ(type.Value(), 10);
  EXPECT_TRUE(MetamodelParser::ParseBinEnum(Json(R"("opaque")"), "foo", type, errors));
  EXPECT_EQ(type, BuiltinType::OPAQUE);
  EXPECT_FALSE(MetamodelParser::ParseBinEnum(Json(R"("bar")"), "foo", type, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidEnumValue("foo")});
}

TEST(GetBuildinType, SetsCategoryZeroAndTheBuiltinType) {
  for (int value = 0; value < BuiltinType::UNKNOWN; ++value) {
    const auto type = MetamodelParser::GetBuildinType(static_cast<BuiltinType::Enumerator>(value));
    EXPECT_EQ(type->category.Value(), 0) << value;
    EXPECT_EQ(type->builtin_type->Value(), value);
    EXPECT_EQ(type->user_defined_type, nullptr) << value;
    EXPECT_EQ(type->generic_instantiation, nullptr) << value;
  }
}

TEST(GetUserDefinedType, SetsCategoryOneAndTheDefinition) {
  const auto definition =
      std::make_shared<const Bindings::Metamodel::UserDefinedType>("foo", "bar");
  const auto type = MetamodelParser::GetUserDefinedType(definition);
  EXPECT_EQ(type->category.Value(), 1);
  EXPECT_FALSE(type->builtin_type);
  EXPECT_EQ(type->user_defined_type, definition);
  EXPECT_EQ(type->generic_instantiation, nullptr);
}

TEST(GetGenericType, SetsCategoryTwoAndTheElementType) {
  const auto element = MetamodelParser::GetBuildinType(BuiltinType::ID);
  for (const auto generic_type : {GenericType::LIST, GenericType::OPTIONAL, GenericType::SET}) {
    const auto type = MetamodelParser::GetGenericType(generic_type, element);
    EXPECT_EQ(type->category.Value(), 2) << generic_type;
    EXPECT_FALSE(type->builtin_type) << generic_type;
    EXPECT_EQ(type->user_defined_type, nullptr) << generic_type;
    EXPECT_EQ(type->generic_instantiation->generic_type, generic_type);
    EXPECT_EQ(type->generic_instantiation->element_type, element) << generic_type;
    EXPECT_EQ(type->generic_instantiation->map_key_type, nullptr) << generic_type;
    EXPECT_EQ(type->generic_instantiation->map_value_type, nullptr) << generic_type;
  }
}

TEST(GetGenericType, SetsTheKeyAndValueTypesOfAMap) {
  const auto key = MetamodelParser::GetBuildinType(BuiltinType::ID);
  const auto value = MetamodelParser::GetBuildinType(BuiltinType::URI);
  const auto type = MetamodelParser::GetGenericType(key, value);
  EXPECT_EQ(type->category.Value(), 2);
  EXPECT_EQ(type->generic_instantiation->generic_type.Value(), 1);
  EXPECT_EQ(type->generic_instantiation->element_type, nullptr);
  EXPECT_EQ(type->generic_instantiation->map_key_type, key);
  EXPECT_EQ(type->generic_instantiation->map_value_type, value);
}

}  // namespace
}  // namespace Zelk::Testing
