#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

using ElementType = Bindings::Metamodel::ElementValueEnumerations::Type;
using Names = std::list<std::string>;

/// Everything that comes of a metadata object.
Loaded ParseMetadata(const std::string& json) {
  ParseRecorder recorder;
  Bindings::Metamodel::MetadataMap map;
  const bool ok =
      MetamodelParser::ParseMetadata(recorder.Callbacks(), Json(json), map, recorder.errors);
  return {ok, DumpAll(map), recorder.calls, MessageTexts(recorder.errors)};
}

TEST(ParseMetadata, ReadsStringsAndListsOfStrings) {
  const std::string json = R"({
      "Foo": {"b": "text", "a": ["z", "y", "z"], "": ""},
      "Bar": {"none": []},
      "": {}})";
  EXPECT_EQ(ParseMetadata(json), (Loaded{true,
                                         R"("" -> {}
"Bar" -> {"none"=[]}
"Foo" -> {""="" "a"=["z", "y", "z"] "b"="text"}
)",
                                         {},
                                         {}}));
}

TEST(ParseMetadata, SetsTypeOneForStringsAndTwoForLists) {
  Errors errors;
  const auto text = MetamodelParser::ParseStringElementValue(Json(R"("foo")"), errors);
  EXPECT_EQ(text->type.Value(), 1);
  EXPECT_EQ(ElementText(*text), "\"foo\"");
  const auto list = MetamodelParser::ParseStringElementValue(Json(R"(["foo"])"), errors);
  EXPECT_EQ(list->type.Value(), 2);
  EXPECT_EQ(ElementText(*list), "[\"foo\"]");
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(ParseMetadata, AcceptsNoAnnotations) {
  EXPECT_EQ(ParseMetadata("{}"), (Loaded{true, "", {}, {}}));
}

TEST(RepeatedAnnotation, LastOneWins) {
  const std::string json =
      R"({"Foo": {"a": "1", "b": "2"}, "Bar": {}, "Foo": {"a": "3"}, "Foo": {"c": "4"}})";
  EXPECT_EQ(ParseMetadata(json),
            (Loaded{true, "\"Bar\" -> {}\n\"Foo\" -> {\"c\"=\"4\"}\n", {}, {}}));
}

TEST(RepeatedElement, LastOneWins) {
  const std::string json = R"({"Foo": {"a": "1", "b": "2", "a": ["3"], "b": "4"}})";
  EXPECT_EQ(ParseMetadata(json),
            (Loaded{true, "\"Foo\" -> {\"a\"=[\"3\"] \"b\"=\"4\"}\n", {}, {}}));
}

TEST(ParseMetadata, KeepsZeroBytesInNamesAndValues) {
  const std::string json = R"({"Foo\u0000": {"a\u0000b": "c\u0000", "a": ["\u0000"]}, "Foo": {}})";
  EXPECT_EQ(ParseMetadata(json).dump, R"("Foo" -> {}
"Foo\x00" -> {"a"=["\x00"] "a\x00b"="c\x00"}
)");
}

TEST(ParseMetadata, ReportsANonObjectAnnotationAsInvalid) {
  for (const auto* annotation : {"null", "1", R"("foo")", "[]", "[{}]", "true"}) {
    const std::string json = R"({"Foo": {}, "Bar": )" + std::string(annotation) + R"(, "Baz": 1})";
    EXPECT_EQ(ParseMetadata(json),
              (Loaded{false, "\"Foo\" -> {}\n", {}, {InvalidField("ElementValue")}}))
        << annotation;
  }
}

TEST(ParseMetadata, ReportsAnElementOfAnotherTypeAsInvalid) {
  for (const auto* element : {"null", "1", "-1.5", "false", "{}", R"({"value": "foo"})"}) {
    const std::string json = R"({"Foo": {"a": "b", "c": )" + std::string(element) + R"(, "d": 1}})";
    EXPECT_EQ(ParseMetadata(json), (Loaded{false, "", {}, {InvalidField("ElementValue")}}))
        << element;
  }
}

TEST(ParseMetadata, ReportsANonStringInAListOnce) {
  for (const auto* list : {"[1]", "[null]", "[[]]", "[{}]", R"(["a", 1, "b", 2, null])"}) {
    const std::string json = R"({"Foo": {"a": )" + std::string(list) + "}}";
    EXPECT_EQ(ParseMetadata(json), (Loaded{false, "", {}, {InvalidField("ElementValue")}})) << list;
  }
}

TEST(ParseMetadata, CallsBackForResourcesUntilAnAnnotationFails) {
  const std::string json = R"({
      "Resource": {"value": "foo"}, "Bar": {"value": "no"}, "Resource": {"value": ["baz", "foo"]},
      "Qux": 1, "Resource": {"value": "never"}})";
  const Loaded loaded = ParseMetadata(json);
  EXPECT_FALSE(loaded.ok);
  EXPECT_EQ(loaded.calls, (Lines{"resource foo", "resource baz", "resource foo"}));
  EXPECT_EQ(loaded.messages, Lines{InvalidField("ElementValue")});
}

TEST(ParseMetadata, DoesNotCallBackForAnInvalidResource) {
  const Loaded loaded = ParseMetadata(R"({"Resource": {"value": "foo", "bar": 1}})");
  EXPECT_EQ(loaded, (Loaded{false, "", {}, {InvalidField("ElementValue")}}));
}

TEST(ParseMetadata, ComparesTheWholeNameOfTheResourceAnnotation) {
  const std::string json = R"({
      "resource": {"value": "a"}, "RESOURCE": {"value": "b"}, "Resource ": {"value": "c"},
      "Resource\u0000": {"value": "d"}, "Resources": {"value": "e"}, "": {"value": "f"}})";
  EXPECT_EQ(ParseMetadata(json).calls, Lines());
}

TEST(ParseElementMap, ReadsElementsWithTheGivenParser) {
  Errors errors;
  const auto parser = [](const JsonValue&, Errors&) {
    return std::make_shared<const Bindings::Metamodel::ElementValue>(
        ElementType::STRING, std::string("same"), boost::none, boost::none, boost::none);
  };
  const auto map = MetamodelParser::ParseElementMap(Json(R"({"a": 1, "b": {}})"), parser, errors);
  EXPECT_EQ(Dump(*map), "{\"a\"=\"same\" \"b\"=\"same\"}\n");
  EXPECT_EQ(MetamodelParser::ParseElementMap(Json("[]"), parser, errors), nullptr);
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidField("ElementValue")});
}

using ElementPtr = std::shared_ptr<const Bindings::Metamodel::ElementValue>;

/// An element with every payload set, each to other texts, so that the one that is used shows.
ElementPtr FullElement(const ElementType& type) {
  return std::make_shared<const Bindings::Metamodel::ElementValue>(
      type, std::string("text"), Names{"b", "a", "b"}, std::string("id"), Names{"y", "x"});
}

ElementPtr EmptyElement(const ElementType& type) {
  return std::make_shared<const Bindings::Metamodel::ElementValue>(type, boost::none, boost::none,
                                                                   boost::none, boost::none);
}

Lines HandleResource(const std::string& name, const ElementPtr& element) {
  ParseRecorder recorder;
  MetamodelParser::HandleResource(recorder.Callbacks(),
                                  Bindings::Metamodel::ElementMap({{name, element}}));
  return recorder.calls;
}

struct ResourceRow {
  ElementType type;
  Lines calls;
};

TEST(HandleResource, UsesThePayloadOfTheType) {
  const std::vector<ResourceRow> rows = {
      {ElementType::LONG, {}},
      {ElementType::STRING, {"resource text"}},
      {ElementType::STRING_LIST, {"resource b", "resource a", "resource b"}},
      {ElementType::STRUCTURE_REFERENCE, {"resource id"}},
      {ElementType::STRUCTURE_REFERENCE_LIST, {"resource y", "resource x"}},
      {ElementType::UNKNOWN, {}},
      {ElementType::Unknown("FOO"), {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(HandleResource("value", FullElement(row.type)), row.calls) << row.type.Value();
    EXPECT_EQ(HandleResource("value", EmptyElement(row.type)), Lines()) << row.type.Value();
  }
}

TEST(HandleResource, UsesOnlyTheElementNamedValue) {
  for (const auto* name : {"Value", "values", "value ", ""}) {
    EXPECT_EQ(HandleResource(name, FullElement(ElementType::STRING)), Lines()) << name;
  }
  ParseRecorder recorder;
  MetamodelParser::HandleResource(recorder.Callbacks(), Bindings::Metamodel::ElementMap({}));
  EXPECT_EQ(recorder.calls, Lines());
}

TEST(HandleResource, CallsBackForEachStringInOrder) {
  const Loaded loaded = ParseMetadata(R"({"Resource": {"value": ["foo", "bar", "baz"]}})");
  EXPECT_EQ(loaded.calls, (Lines{"resource foo", "resource bar", "resource baz"}));
}

TEST(HandleResource, DoesNotCallBackForAnEmptyList) {
  EXPECT_EQ(ParseMetadata(R"({"Resource": {"value": []}})").calls, Lines());
}

TEST(HandleResource, ThrowsOnAnEmptyCallback) {
  EXPECT_THROW(
      MetamodelParser::HandleResource(
          {}, Bindings::Metamodel::ElementMap({{"value", FullElement(ElementType::STRING)}})),
      std::bad_function_call);
  EXPECT_NO_THROW(MetamodelParser::HandleResource({}, Bindings::Metamodel::ElementMap({})));
}

/// The metadata of a field, as in a file.
using FieldMetadata = std::string;

const FieldMetadata kKey = R"({"ModelKey": {}, "Resource": {"value": "foo"}})";
const FieldMetadata kOtherKey = R"({"Resource": {"value": "bar"}, "ModelKey": {"a": "b"}})";
const FieldMetadata kListKey = R"({"ModelKey": {}, "Resource": {"value": ["baz"]}})";
const FieldMetadata kKeyWithoutValue = R"({"ModelKey": {}, "Resource": {"values": "baz"}})";
const FieldMetadata kNoKey = R"({"Resource": {"value": "no"}})";
const FieldMetadata kNoResource = R"({"ModelKey": {"value": "no"}})";
const FieldMetadata kNone = "{}";

std::string Structure(const std::string& metadata, const std::vector<FieldMetadata>& fields) {
  std::string list;
  for (const auto& field : fields) {
    list += list.empty() ? "" : ",";
    list += R"({"name": "f", "documentation": "", "metadata": )" + field +
            R"(, "type": {"category": "BUILTIN", "primitive_type": "ID"}})";
  }
  return R"({"name": "s", "type": "STRUCTURE", "documentation": "", "metadata": )" + metadata +
         R"(, "enumerations": [], "constants": [], "fields": [)" + list + "]}";
}

/// The model registrations of a structure.
Lines Models(const std::string& metadata, const std::vector<FieldMetadata>& fields) {
  ParseRecorder recorder;
  const auto structure =
      MetamodelParser::ParseStructure({nullptr, [](const auto&) {}, recorder.Callbacks().model},
                                      Json(Structure(metadata, fields)), recorder.errors);
  EXPECT_NE(structure.second, nullptr);
  EXPECT_EQ(MessageTexts(recorder.errors), Lines());
  return recorder.calls;
}

TEST(HandleModelInfo, CallsBackForEachKeyOfAResource) {
  const std::string model = R"({"Model": {}})";
  EXPECT_EQ(Models(model, {}), Lines());
  EXPECT_EQ(Models(model, {kKey}), Lines{"model foo s"});
  EXPECT_EQ(Models(model, {kKey, kOtherKey, kKey}),
            (Lines{"model foo s", "model bar s", "model foo s"}));
}

TEST(HandleModelInfo, SkipsFieldsWithoutAKeyOrResource) {
  EXPECT_EQ(Models(R"({"Model": {}})", {kNone, kNoKey, kKey, kNoResource, kOtherKey, kNone}),
            (Lines{"model foo s", "model bar s"}));
}

TEST(HandleModelInfo, SkipsStructuresWithoutTheModelAnnotation) {
  for (const auto* metadata : {"{}", R"({"model": {}})", R"({"MODEL": {}})", R"({"Models": {}})",
                               R"({"Model\u0000": {}})", R"({"Foo": {"Model": "Model"}})"}) {
    EXPECT_EQ(Models(metadata, {kKey}), Lines()) << metadata;
  }
}

TEST(HandleModelInfo, StopsAtAKeyWithAListOfResources) {
  EXPECT_EQ(Models(R"({"Model": {}})", {kKey, kListKey, kOtherKey}), Lines{"model foo s"});
  EXPECT_EQ(Models(R"({"Model": {}})", {kListKey, kKey}), Lines());
}

TEST(HandleModelInfo, StopsAtAKeyWithAResourceWithoutValue) {
  EXPECT_EQ(Models(R"({"Model": {}})", {kKey, kKeyWithoutValue, kOtherKey}), Lines{"model foo s"});
}

TEST(HandleModelInfo, IgnoresTheContentOfTheModelAnnotation) {
  EXPECT_EQ(Models(R"({"Model": {"value": ["a"], "b": "c"}})", {kKey}), Lines{"model foo s"});
}

/// A model with a key field of each of the types, in order.
Bindings::Metamodel::StructureInfo ModelWithKeys(const std::vector<ElementType>& types) {
  std::list<std::shared_ptr<const Bindings::Metamodel::FieldInfo>> fields;
  const auto empty = std::make_shared<const Bindings::Metamodel::ElementMap>(
      std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ElementValue>>());
  for (const auto& type : types) {
    const auto resource = std::make_shared<const Bindings::Metamodel::ElementMap>(
        std::map<std::string, std::shared_ptr<const Bindings::Metamodel::ElementValue>>{
            {"value", FullElement(type)}});
    fields.push_back(std::make_shared<const Bindings::Metamodel::FieldInfo>(
        "f", nullptr, Bindings::Metamodel::MetadataMap{{"Resource", resource}, {"ModelKey", empty}},
        ""));
  }
  return {"s",    Bindings::Metamodel::StructureInfoEnumerations::Type::STRUCTURE,
          {},     {},
          fields, {{"Model", empty}},
          ""};
}

TEST(HandleModelInfo, StopsAtANonStringValue) {
  for (const auto type :
       {ElementType::LONG, ElementType::STRING_LIST, ElementType::STRUCTURE_REFERENCE,
        ElementType::STRUCTURE_REFERENCE_LIST, ElementType::UNKNOWN}) {
    ParseRecorder recorder;
    MetamodelParser::HandleModelInfo(
        recorder.Callbacks(), ModelWithKeys({ElementType::STRING, type, ElementType::STRING}));
    EXPECT_EQ(recorder.calls, Lines{"model text s"}) << type;
  }
}

TEST(HandleModelInfo, ThrowsOnAnEmptyCallback) {
  EXPECT_THROW(MetamodelParser::HandleModelInfo({}, ModelWithKeys({ElementType::STRING})),
               std::bad_function_call);
  EXPECT_NO_THROW(MetamodelParser::HandleModelInfo({}, ModelWithKeys({ElementType::LONG})));
}

}  // namespace
}  // namespace Zelk::Testing
