#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "metamodel/sample_component.h"
#include "support/as_source.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

std::string ParseError(unsigned code, std::size_t offset) {
  return MessageText("zelk.metadata.metamodel.parse.error",
                     {std::to_string(code), std::to_string(offset)});
}

/// What a file comes to that fails before anything is reported.
Loaded Failed(const Lines& messages) {
  return {false, "", {}, messages};
}

/// The sample component with its component object replaced.
std::string Component(const std::string& members) {
  return R"({"metamodel": {"component": )" + members + "}}";
}

TEST(LoadMetadata, ReadsEveryKeyOfTheFormat) {
  const Loaded expected{true,
                        kSampleDump,
                        {"resource foo.bar", "model foo.bar foo.bar.info", "resource foo.bar",
                         "resource foo.baz", "resource foo.bar", "component foo"},
                        {}};
  EXPECT_EQ(Load(kSampleComponent), expected);
}

TEST(LoadMetadata, AcceptsAComponentWithoutPackages) {
  const std::string json =
      Component(R"({"name": "foo", "documentation": "", "metadata": {}, "packages": []})");
  EXPECT_EQ(Load(json), (Loaded{true, "component \"foo\" \"\"\n", {"component foo"}, {}}));
}

TEST(LoadMetadata, AcceptsEmptyLists) {
  std::string json = kSampleComponent;
  const std::string operation = kOperation;
  for (const auto& pointer : {operation + "/params", operation + "/errors"}) {
    json = With(json, pointer, "[]");
  }
  EXPECT_TRUE(Load(json).ok);
  for (const std::string list : {"/operations", "/constants", "/structures", "/enumerations"}) {
    json = With(json, kService + list, "[]");
  }
  EXPECT_TRUE(Load(json).ok);
  for (const std::string list : {"/services", "/structures", "/enumerations"}) {
    json = With(json, kPackage + list, "[]");
  }
  EXPECT_TRUE(Load(json).ok);
}

TEST(LoadMetadata, ReadsAStreamLikeItsText) {
  const std::string sample = kSampleComponent;
  for (const std::string& text : {sample, std::string(), std::string("[]"), sample + "x",
                                  sample.substr(0, 100), "\xef\xbb\xbf" + sample, sample + '\0'}) {
    EXPECT_EQ(LoadFrom(std::istringstream(text)), Load(text)) << text;
  }
}

TEST(LoadMetadata, ReadsAStreamFromItsCurrentPosition) {
  std::istringstream in(std::string("[[[") + kSampleComponent);
  in.seekg(3);
  EXPECT_EQ(LoadFrom(in), Load(kSampleComponent));
}

TEST(LoadMetadata, ReadsTwoHundredMegabytes) {
  // NOLINTNEXTLINE(bugprone-string-constructor): the length is meant.
  std::string text(200'000'000, ' ');
  text += kSampleComponent;
  EXPECT_EQ(Load(text), Load(kSampleComponent));
  text += "]";
  EXPECT_EQ(Load(text).messages, Lines{ParseError(2, text.size() - 1)});
}

TEST(LoadMetadata, ReportsOneParseErrorForATruncatedFile) {
  const std::string sample = kSampleComponent;
  for (std::size_t size = 0; size < sample.size(); ++size) {
    const Loaded loaded = Load(sample.substr(0, size));
    EXPECT_FALSE(loaded.ok) << size;
    ASSERT_EQ(loaded.messages.size(), 1U) << size;
    EXPECT_EQ(loaded.messages.front().find("zelk.metadata.metamodel.parse.error("), 0U) << size;
    EXPECT_EQ(loaded.calls, Lines()) << size;
  }
}

TEST(LoadMetadata, ReportsTheCodeAndOffsetOfASyntaxError) {
  const std::string sample = kSampleComponent;
  EXPECT_EQ(Load(""), Failed({ParseError(1, 0)}));
  EXPECT_EQ(Load(R"({"metamodel": )"), Failed({ParseError(3, 14)}));
  EXPECT_EQ(Load(R"({"metamodel": {)"), Failed({ParseError(4, 15)}));
  EXPECT_EQ(Load("]"), Failed({ParseError(3, 0)}));
  EXPECT_EQ(Load(sample + "x"), Failed({ParseError(2, sample.size())}));
  EXPECT_EQ(Load("\xef\xbb\xbf" + sample), Failed({ParseError(3, 0)}));
  EXPECT_EQ(Load("\xff" + sample), Failed({ParseError(3, 0)}));
  EXPECT_EQ(Load('\0' + sample), Failed({ParseError(1, 0)}));
}

TEST(LoadMetadata, EndsAtAZeroByte) {
  EXPECT_EQ(Load(kSampleComponent + std::string("\0]]", 3)), Load(kSampleComponent));
}

TEST(LoadMetadata, ReportsTheRootKeyOfANonObjectAsMissing) {
  for (const auto* json : {"[]", R"([{"metamodel": {}}])", R"("metamodel")", "1", "true", "null"}) {
    EXPECT_EQ(Load(json), Failed({MissingField("metamodel")})) << json;
  }
}

struct BadFile {
  const char* json;
  Lines messages;
};

TEST(LoadMetadata, StopsAtTheFirstMissingObject) {
  const std::vector<BadFile> rows = {
      {"{}", {MissingField("metamodel")}},
      {R"({"Metamodel": {}})", {MissingField("metamodel")}},
      {R"({"metamodel": null})", {InvalidField("metamodel")}},
      {R"({"metamodel": []})", {InvalidField("metamodel")}},
      {R"({"metamodel": {}})", {MissingField("component")}},
      {R"({"metamodel": {"component": "foo"}})", {InvalidField("component")}},
      {R"({"metamodel": {"component": {}}})", {MissingField("name")}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Load(row.json), Failed(row.messages)) << row.json;
  }
}

/// The arrays that are read into maps by name.
std::vector<std::string> MapArrays() {
  const std::string package = kPackage;
  const std::string service = kService;
  const std::string structure = kStructure;
  return {std::string(kComponent) + "/packages",
          package + "/enumerations",
          package + "/structures",
          package + "/services",
          service + "/enumerations",
          service + "/structures",
          service + "/constants",
          service + "/operations",
          structure + "/enumerations",
          structure + "/constants"};
}

TEST(LoadMetadata, ReportsTheFirstKeyOfANonObjectAsMissing) {
  std::vector<std::string> arrays = MapArrays();
  const std::string errors = std::string(kOperation) + "/errors";
  for (const auto& list :
       {errors, std::string(kOperation) + "/params", std::string(kStructure) + "/fields",
        std::string(kEnumeration) + "/values"}) {
    arrays.push_back(list);
  }
  for (const auto& array : arrays) {
    const std::string key = array == errors ? "user_defined_type_name" : "name";
    for (const auto* element : {"[null]", "[1]", R"(["name"])", "[[]]", "[false]"}) {
      const Loaded loaded = Load(With(kSampleComponent, array, element));
      EXPECT_FALSE(loaded.ok) << array << element;
      EXPECT_EQ(loaded.messages, Lines{MissingField(key)}) << array << element;
    }
  }
}

TEST(LoadMetadata, KeepsInvalidUtf8InStrings) {
  const std::string json = Component(
      "{\"name\": \"f\xff\", \"documentation\": \"\xc3\", \"metadata\": {}, \"packages\": []}");
  EXPECT_EQ(Load(json).dump, "component \"f\\xff\" \"\\xc3\"\n");
}

/// The sample with a second element in an array, a copy of the first but for its documentation.
std::string WithTwin(const std::string& array) {
  const auto document = Json(kSampleComponent);
  const std::string twin = JsonText(*JsonPointer((array + "/0").c_str()).Get(document));
  return With(kSampleComponent, array + "/-", With(twin, "/documentation", R"("The twin.")"));
}

TEST(LoadMetadata, KeepsTheFirstOfARepeatedName) {
  for (const auto& array : MapArrays()) {
    const Loaded loaded = Load(WithTwin(array));
    EXPECT_TRUE(loaded.ok) << array;
    EXPECT_EQ(loaded.dump, kSampleDump) << array;
    EXPECT_EQ(loaded.messages, Lines()) << array;
  }
}

TEST(LoadMetadata, KeepsTheOrderOfLists) {
  struct Row {
    std::string array;
    std::string line;
    std::string twin_line;
  };

  const std::string operation = kOperation;
  const std::vector<Row> rows = {
      {operation + "/params", R"(field "ids" "Which.")", R"(field "ids" "The twin.")"},
      {operation + "/errors", R"(error "foo.bar.failure" "Not there.")",
       R"(error "foo.bar.failure" "The twin.")"},
      {std::string(kStructure) + "/fields", R"(field "id" "The key.")",
       R"(field "id" "The twin.")"},
      {std::string(kEnumeration) + "/values", R"(value "BLUE" "Blue.")",
       R"(value "RED" "The twin.")"},
  };
  for (const auto& row : rows) {
    const std::string dump = Load(WithTwin(row.array)).dump;
    ASSERT_NE(dump.find(row.line), std::string::npos) << row.array;
    EXPECT_NE(dump.find(row.twin_line, dump.find(row.line)), std::string::npos) << row.array;
  }
}

TEST(LoadMetadata, ReadsTheFirstOfARepeatedKey) {
  const std::string json = Component(R"({
      "name": "foo", "name": 1, "documentation": "bar", "documentation": "baz",
      "metadata": {"a": {}}, "metadata": {"b": {}}, "packages": [], "packages": null})");
  EXPECT_EQ(Load(json).dump, "component \"foo\" \"bar\"\n  \"a\" -> {}\n");
  EXPECT_EQ(Load(json).messages, Lines());
}

TEST(LoadMetadata, FailsIfTheFirstOfARepeatedKeyIsInvalid) {
  EXPECT_EQ(Load(R"({"metamodel": 1, "metamodel": {}})"), Failed({InvalidField("metamodel")}));
  EXPECT_EQ(Load(Component(R"({"name": null, "name": "foo"})")), Failed({InvalidField("name")}));
}

TEST(LoadMetadata, ComparesKeysUpToTheirFirstZeroByte) {
  const std::string json = Component(
      R"({"name\u0000": "foo", "name": "bar", "documentation\u0000x": "",
          "metadata": {}, "packages": []})");
  EXPECT_EQ(Load(json).dump, "component \"foo\" \"\"\n");
}

TEST(LoadMetadata, KeepsZeroBytesInNames) {
  const std::string enumeration = R"("documentation": "", "metadata": {}, "values": [])";
  const std::string enumerations = R"([{"name": "a\u0000b", )" + enumeration +
                                   R"(}, {"name": "a", )" + enumeration +
                                   R"(}, {"name": "a\u0000a", )" + enumeration + "}]";
  const std::string json =
      With(kSampleComponent, std::string(kPackage) + "/enumerations", enumerations);
  const auto dump = Load(json).dump;
  EXPECT_NE(dump.find(R"(    "a" -> enumeration "a" ""
    "a\x00a" -> enumeration "a\x00a" ""
    "a\x00b" -> enumeration "a\x00b" ""
)"),
            std::string::npos)
      << dump;
}

TEST(LoadMetadata, ReportsResourcesAndModelsBeforeALaterFailure) {
  const Lines until_service = {"resource foo.bar", "model foo.bar foo.bar.info"};
  const Loaded no_services = Load(Without(kSampleComponent, std::string(kPackage) + "/services"));
  EXPECT_EQ(no_services, (Loaded{false, "", until_service, {MissingField("services")}}));

  const Loaded no_errors = Load(Without(kSampleComponent, std::string(kOperation) + "/errors"));
  const Lines all_but_component = {"resource foo.bar", "model foo.bar foo.bar.info",
                                   "resource foo.bar", "resource foo.baz", "resource foo.bar"};
  EXPECT_EQ(no_errors, (Loaded{false, "", all_but_component, {MissingField("errors")}}));
}

TEST(LoadMetadata, CallsBackInTheOrderOfReading) {
  const std::string field =
      R"("documentation": "", "type": {"category": "BUILTIN", "primitive_type": "ID"})";
  const std::string structure =
      R"({"fields": [{"metadata": {"ModelKey": {}, "Resource": {"value": "3"}}, "name": "f", )" +
      field + R"(}], "enumerations": [{"metadata": {"Resource": {"value": "2"}}, "values": [],
          "documentation": "", "name": "e"}], "constants": [], "documentation": "",
          "metadata": {"Resource": {"value": "1"}, "Model": {}}, "type": "STRUCTURE",
          "name": "s"})";
  ParseRecorder recorder;
  MetamodelParser::ParseStructure(recorder.Callbacks(), Json(structure), recorder.errors);
  EXPECT_EQ(recorder.calls, (Lines{"resource 1", "resource 2", "resource 3", "model 3 s"}));
  EXPECT_EQ(MessageTexts(recorder.errors), Lines());
}

TEST(LoadMetadata, CallsBackForADroppedRepeat) {
  const Loaded loaded = Load(WithTwin(std::string(kPackage) + "/structures"));
  const Lines begin(loaded.calls.begin(), loaded.calls.begin() + 4);
  EXPECT_EQ(begin, (Lines{"resource foo.bar", "model foo.bar foo.bar.info", "resource foo.bar",
                          "model foo.bar foo.bar.info"}));
}

TEST(LoadMetadata, ThrowsOnAnEmptyCallbackIfItIsNeeded) {
  const std::function<void(MetamodelParser::RegisterCallbacks&)> emptied[] = {
      [](auto& callbacks) { callbacks.component = nullptr; },
      [](auto& callbacks) { callbacks.resource = nullptr; },
      [](auto& callbacks) { callbacks.model = nullptr; }};
  for (const auto& empty_one : emptied) {
    ParseRecorder recorder;
    auto callbacks = recorder.Callbacks();
    empty_one(callbacks);
    EXPECT_THROW(MetamodelParser::LoadMetadata(Testing::AsSource(kSampleComponent), callbacks,
                                               recorder.errors),
                 std::bad_function_call);
    EXPECT_EQ(recorder.component, nullptr);
  }
}

TEST(LoadMetadata, AcceptsEmptyCallbacksIfTheyAreNotNeeded) {
  const std::string_view json =
      R"({"metamodel": {"component": {"name": "foo", "documentation": "", "metadata": {}}}})";
  Errors errors;
  EXPECT_FALSE(MetamodelParser::LoadMetadata(Testing::AsSource(json), {}, errors));
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("packages")});
}

std::string PieceOfSample(const std::string& pointer) {
  const auto document = Json(kSampleComponent);
  return JsonText(*JsonPointer(pointer.c_str()).Get(document));
}

TEST(ParsePackage, ReturnsTheRecordWithItsName) {
  ParseRecorder recorder;
  const auto [name, package] = MetamodelParser::ParsePackage(
      recorder.Callbacks(), Json(PieceOfSample(kPackage)), recorder.errors);
  EXPECT_EQ(name, "foo.bar");
  EXPECT_EQ(package->name, "foo.bar");
  EXPECT_EQ(package->services.size(), 1U);
}

TEST(ParseOperation, ReturnsTheRecordWithItsName) {
  ParseRecorder recorder;
  const auto [name, operation] = MetamodelParser::ParseOperation(
      recorder.Callbacks(), Json(PieceOfSample(kOperation)), recorder.errors);
  EXPECT_EQ(name, "get");
  EXPECT_EQ(Dump(*operation), R"(operation "get" "Gets."
  "Verb" -> {"value"="GET"}
  field "ids" "Which." : LIST<ID>
    "Resource" -> {"value"="foo.bar"}
  result "By id." : MAP<STRING, "com.orvane.zelk.structure":"foo.bar.info">
    "Paged" -> {}
  error "foo.bar.failure" "Not there."
)");
}

TEST(ParseResult, StoresNothingOnFailure) {
  ParseRecorder recorder;
  std::shared_ptr<const Bindings::Metamodel::OperationResultInfo> result;
  EXPECT_FALSE(MetamodelParser::ParseResult(recorder.Callbacks(),
                                            Json(R"({"documentation": "", "metadata": {}})"),
                                            result, recorder.errors));
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(MessageTexts(recorder.errors), Lines{MissingField("type")});
}

TEST(ParseError, ReadsTheNameOfTheStructure) {
  Errors errors;
  const auto error = MetamodelParser::ParseError(
      Json(R"({"user_defined_type_name": "foo", "documentation": "bar", "name": "baz"})"), errors);
  EXPECT_EQ(Dump(*error), "error \"foo\" \"bar\"\n");
  EXPECT_EQ(MetamodelParser::ParseError(Json(R"({"name": "foo"})"), errors), nullptr);
  EXPECT_EQ(MessageTexts(errors), Lines{MissingField("user_defined_type_name")});
}

}  // namespace
}  // namespace Zelk::Testing
