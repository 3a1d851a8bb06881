#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

/// A structure with an empty list of everything; `changed` overrides "type" and "fields".
std::string Structure(const std::string& type, const std::string& fields) {
  return R"({"name": "foo", "type": ")" + type +
         R"(", "documentation": "bar", "metadata": {}, "enumerations": [], "constants": [],
             "fields": )" +
         fields + "}";
}

std::string Field(const std::string& name, const std::string& type) {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {}, "type": )" + type +
         "}";
}

constexpr char kId[] = R"({"category": "BUILTIN", "primitive_type": "ID"})";

Loaded ParseStructure(const std::string& json) {
  ParseRecorder recorder;
  const auto [name, structure] =
      MetamodelParser::ParseStructure(recorder.Callbacks(), Json(json), recorder.errors);
  return {structure != nullptr, structure ? name + " " + Dump(*structure) : "", recorder.calls,
          MessageTexts(recorder.errors)};
}

TEST(ParseStructure, AcceptsNoFields) {
  EXPECT_EQ(ParseStructure(Structure("STRUCTURE", "[]")),
            (Loaded{true, "foo structure STRUCTURE \"foo\" \"bar\"\n", {}, {}}));
}

TEST(ParseStructure, AcceptsStructureAndErrorInAnyCase) {
  for (const auto* type : {"Structure", "structure", "STRUCTURE"}) {
    EXPECT_EQ(ParseStructure(Structure(type, "[]")).dump,
              "foo structure STRUCTURE \"foo\" \"bar\"\n");
  }
  for (const auto* type : {"Error", "error", "ERROR"}) {
    EXPECT_EQ(ParseStructure(Structure(type, "[]")).dump, "foo structure ERROR \"foo\" \"bar\"\n");
  }
}

TEST(ParseStructure, RefusesOtherTypes) {
  for (const auto* type : {"EXCEPTION", "PRIMITIVE", "com.orvane.zelk.structure", ""}) {
    EXPECT_EQ(ParseStructure(Structure(type, "[]")),
              (Loaded{false, "", {}, {InvalidEnumValue("type")}}))
        << type;
  }
}

TEST(ParseStructure, KeepsTheOrderAndRepeatsOfFields) {
  const std::string fields =
      "[" + Field("b", kId) + "," + Field("a", kId) + "," + Field("b", kId) + "]";
  EXPECT_EQ(ParseStructure(Structure("ERROR", fields)).dump,
            R"(foo structure ERROR "foo" "bar"
  field "b" "" : ID
  field "a" "" : ID
  field "b" "" : ID
)");
}

TEST(ParseStructure, FailsAtTheFirstInvalidField) {
  const std::string fields =
      "[" + Field("a", kId) + "," + Field("b", "{}") + "," + Field("c", "1") + "]";
  EXPECT_EQ(ParseStructure(Structure("ERROR", fields)),
            (Loaded{false, "", {}, {MissingField("category")}}));
}

TEST(ParseStructure, KeepsTheMessageOfAnAcceptedConstant) {
  const std::string constants = R"([{"name": "A", "documentation": "", "value": 1,
      "type": {"category": "PRIMITIVE", "type": "STRING"}}])";
  const Loaded loaded = ParseStructure(With(Structure("ERROR", "[]"), "/constants", constants));
  EXPECT_TRUE(loaded.ok);
  EXPECT_EQ(loaded.messages, Lines{InvalidField("value")});

  const Loaded failed = ParseStructure(With(Structure("ERROR", "1"), "/constants", constants));
  EXPECT_FALSE(failed.ok);
  EXPECT_EQ(failed.messages, (Lines{InvalidField("value"), InvalidField("fields")}));
}

TEST(ParseStructure, DoesNotCallBackForAModelIfItFails) {
  const std::string fields = R"([{"name": "a", "documentation": "",
      "metadata": {"Resource": {"value": "qux"}, "ModelKey": {}}, "type": )" +
                             std::string(kId) + "}, " + Field("b", "1") + "]";
  const Loaded loaded =
      ParseStructure(With(Structure("ERROR", fields), "/metadata", R"({"Model": {}})"));
  EXPECT_EQ(loaded, (Loaded{false, "", {"resource qux"}, {InvalidField("type")}}));
}

TEST(ParseFieldInfo, ReadsAllFourKeys) {
  ParseRecorder recorder;
  const auto field = MetamodelParser::ParseFieldInfo(
      recorder.Callbacks(),
      Json(R"({"type": {"category": "BUILTIN", "primitive_type": "ID"}, "name": "a",
               "metadata": {"Foo": {"b": "c"}}, "documentation": "d"})"),
      recorder.errors);
  EXPECT_EQ(Dump(*field), "field \"a\" \"d\" : ID\n  \"Foo\" -> {\"b\"=\"c\"}\n");
  EXPECT_EQ(MessageTexts(recorder.errors), Lines());
}

TEST(ParseEnumeration, KeepsTheOrderAndRepeatsOfValues) {
  ParseRecorder recorder;
  const std::string value = R"(, "documentation": "", "metadata": {}})";
  const std::string json = R"({"name": "foo", "documentation": "bar", "metadata": {}, "values": [
      {"name": "B")" + value +
                           R"(, {"name": "A")" + value + R"(, {"name": "B")" + value + "]}";
  const auto [name, enumeration] =
      MetamodelParser::ParseEnumeration(recorder.Callbacks(), Json(json), recorder.errors);
  EXPECT_EQ(name, "foo");
  EXPECT_EQ(Dump(*enumeration), R"(enumeration "foo" "bar"
  value "B" ""
  value "A" ""
  value "B" ""
)");
}

TEST(ParseEnumeration, FailsAtTheFirstInvalidValue) {
  ParseRecorder recorder;
  const std::string json = R"({"name": "foo", "documentation": "", "metadata": {}, "values": [
      {"name": "A", "documentation": "", "metadata": {}}, {"name": 1}, {}]})";
  const auto enumeration =
      MetamodelParser::ParseEnumeration(recorder.Callbacks(), Json(json), recorder.errors);
  EXPECT_EQ(enumeration.second, nullptr);
  EXPECT_EQ(MessageTexts(recorder.errors), Lines{InvalidField("name")});
}

TEST(ParseEnumValues, CallsBackForTheResourcesOfAValue) {
  ParseRecorder recorder;
  const auto value = MetamodelParser::ParseEnumValues(
      recorder.Callbacks(),
      Json(R"({"name": "A", "documentation": "b", "metadata": {"Resource": {"value": "foo"}}})"),
      recorder.errors);
  EXPECT_EQ(Dump(*value), "value \"A\" \"b\"\n  \"Resource\" -> {\"value\"=\"foo\"}\n");
  EXPECT_EQ(recorder.calls, Lines{"resource foo"});
}

}  // namespace
}  // namespace Zelk::Testing
