#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "metamodel/parse_recorder.h"
#include "metamodel/sample_component.h"
#include "support/json_text.h"

namespace Zelk::Testing {
namespace {

// The sample component holds every object of the format. Here each of their keys is taken away,
// and each is given every value that it must not have.

enum class Kind { kString, kEnum, kObject, kArray };

struct Key {
  const char* name;
  Kind kind;
};

struct Object {
  std::string pointer;
  /// In the order in which they are read.
  std::vector<Key> keys;
};

const Key kName = {"name", Kind::kString};
const Key kDocumentation = {"documentation", Kind::kString};
const Key kMetadata = {"metadata", Kind::kObject};
const Key kEnumerations = {"enumerations", Kind::kArray};
const Key kStructures = {"structures", Kind::kArray};
const Key kConstants = {"constants", Kind::kArray};
const Key kType = {"type", Kind::kObject};
const Key kCategory = {"category", Kind::kEnum};
const Key kGenericType = {"generic_type", Kind::kEnum};

std::vector<Object> DocumentObjects() {
  const std::string operation = kOperation;
  return {
      {"", {{"metamodel", Kind::kObject}}},
      {"/metamodel", {{"component", Kind::kObject}}},
      {kComponent, {kName, kDocumentation, kMetadata, {"packages", Kind::kArray}}},
      {kPackage,
       {kName, kDocumentation, kMetadata, kEnumerations, kStructures, {"services", Kind::kArray}}},
      {kService,
       {kName,
        kDocumentation,
        kMetadata,
        kEnumerations,
        kStructures,
        kConstants,
        {"operations", Kind::kArray}}},
      {operation,
       {kName,
        kDocumentation,
        kMetadata,
        {"params", Kind::kArray},
        {"result", Kind::kObject},
        {"errors", Kind::kArray}}},
      {operation + "/params/0", {kName, kDocumentation, kMetadata, kType}},
      {operation + "/result", {kDocumentation, kMetadata, kType}},
      {operation + "/errors/0", {{"user_defined_type_name", Kind::kString}, kDocumentation}},
  };
}

/// The objects of a structure and of an enumeration, and of a constant without its "value".
std::vector<Object> DefinitionObjects() {
  const std::vector<Key> enumeration = {kName, kDocumentation, kMetadata, {"values", Kind::kArray}};
  const std::vector<Key> structure = {
      kName,      {"type", Kind::kEnum},   kDocumentation, kMetadata, kEnumerations,
      kConstants, {"fields", Kind::kArray}};
  const std::vector<Key> constant = {kName, kDocumentation, kType};
  const std::string in_package = kPackage;
  const std::string in_service = kService;
  return {
      {in_package + "/enumerations/0", enumeration},
      {in_package + "/enumerations/0/values/0", {kName, kDocumentation, kMetadata}},
      {in_package + "/structures/0", structure},
      {in_package + "/structures/0/enumerations/0", enumeration},
      {in_package + "/structures/0/constants/0", constant},
      {in_package + "/structures/0/constants/0/type", {kCategory, {"type", Kind::kEnum}}},
      {in_package + "/structures/0/fields/0", {kName, kDocumentation, kMetadata, kType}},
      {in_service + "/enumerations/0", enumeration},
      {in_service + "/structures/0", structure},
      {in_service + "/constants/0", constant},
      {in_service + "/constants/0/type", {kCategory, {"type", Kind::kEnum}}},
  };
}

std::vector<Object> TypeObjects() {
  const std::string list = std::string(kOperation) + "/params/0/type";
  const std::string map = std::string(kOperation) + "/result/type";
  const std::vector<Key> builtin = {kCategory, {"primitive_type", Kind::kEnum}};
  return {
      {std::string(kStructure) + "/fields/0/type", builtin},
      {list, {kCategory, kGenericType, {"element_type", Kind::kObject}}},
      {list + "/element_type", builtin},
      {map,
       {kCategory,
        kGenericType,
        {"map_key_type", Kind::kObject},
        {"map_value_type", Kind::kObject}}},
      {map + "/map_key_type", builtin},
      {map + "/map_value_type",
       {kCategory,
        {"user_defined_type", Kind::kString},
        {"user_defined_type_name", Kind::kString}}},
  };
}

std::vector<Object> AllObjects() {
  std::vector<Object> objects = DocumentObjects();
  for (const auto& more : {DefinitionObjects(), TypeObjects()}) {
    objects.insert(objects.end(), more.begin(), more.end());
  }
  return objects;
}

/// Values that a key of that kind must not have.
std::vector<std::string> WrongValues(Kind kind) {
  std::vector<std::string> values = {"null", "true", "false", "0", "-1.5"};
  const bool is_text = kind == Kind::kString || kind == Kind::kEnum;
  if (!is_text) values.insert(values.end(), {R"("")", R"("foo")"});
  if (kind != Kind::kObject) values.insert(values.end(), {"{}", R"({"name": "foo"})"});
  if (kind != Kind::kArray) values.insert(values.end(), {"[]", R"(["foo"])"});
  return values;
}

bool IsComponentCall(const std::string& call) {
  return call.compare(0, 10, "component ") == 0;
}

/// Loads what must fail with exactly this message and without a component.
void ExpectFailure(const std::string& json, const std::string& message, const std::string& what) {
  const Loaded loaded = Load(json);
  EXPECT_FALSE(loaded.ok) << what;
  EXPECT_EQ(loaded.messages, Lines{message}) << what;
  for (const auto& call : loaded.calls) EXPECT_FALSE(IsComponentCall(call)) << what;
}

TEST(RequiredKeys, AreReportedOnceIfMissing) {
  for (const auto& object : AllObjects()) {
    for (const auto& key : object.keys) {
      const std::string pointer = object.pointer + "/" + key.name;
      ExpectFailure(Without(kSampleComponent, pointer), MissingField(key.name), pointer);
    }
  }
}

TEST(RequiredKeys, AreReportedOnceIfOfAnotherType) {
  for (const auto& object : AllObjects()) {
    for (const auto& key : object.keys) {
      const std::string pointer = object.pointer + "/" + key.name;
      for (const auto& value : WrongValues(key.kind)) {
        ExpectFailure(With(kSampleComponent, pointer, value), InvalidField(key.name),
                      pointer + " = " + value);
      }
    }
  }
}

TEST(RequiredKeys, AreReportedOnceIfUnknownEnumerators) {
  for (const auto& object : AllObjects()) {
    for (const auto& key : object.keys) {
      const std::string pointer = object.pointer + "/" + key.name;
      for (const auto* text : {R"("FOO")", R"("")", R"(" LIST")", R"("STRING\u0000")"}) {
        if (key.kind != Kind::kEnum) continue;
        ExpectFailure(With(kSampleComponent, pointer, text), InvalidEnumValue(key.name),
                      pointer + " = " + text);
      }
    }
  }
}

TEST(RequiredKeys, AreReadInOrderUntilOneFails) {
  for (const auto& object : AllObjects()) {
    std::string json = kSampleComponent;
    // From the last to the first: what is reported is always the first that is absent.
    for (auto key = object.keys.rbegin(); key != object.keys.rend(); ++key) {
      const std::string pointer = object.pointer + "/" + key->name;
      json = Without(json, pointer);
      ExpectFailure(json, MissingField(key->name), pointer + " and those after it");
    }
  }
}

TEST(RequiredKeys, AreNotReadAfterAnInvalidOne) {
  for (const auto& object : AllObjects()) {
    std::string json = kSampleComponent;
    for (auto key = object.keys.rbegin(); key != object.keys.rend(); ++key) {
      const std::string pointer = object.pointer + "/" + key->name;
      json = With(json, pointer, "null");
      ExpectFailure(json, InvalidField(key->name), pointer + " and those after it");
    }
  }
}

TEST(RequiredKeys, AreFoundAtAnyPosition) {
  const Loaded expected = Load(kSampleComponent);
  for (const auto& object : AllObjects()) {
    for (const auto& key : object.keys) {
      const std::string pointer = object.pointer + "/" + key.name;
      const auto document = Json(kSampleComponent);
      const std::string value = JsonText(*JsonPointer(pointer.c_str()).Get(document));
      // A key that is removed and set again is the last.
      EXPECT_EQ(Load(With(Without(kSampleComponent, pointer), pointer, value)), expected)
          << pointer;
    }
  }
}

TEST(RequiredKeys, MayHaveUnknownKeysAmongThem) {
  const Loaded expected = Load(kSampleComponent);
  for (const auto& object : AllObjects()) {
    for (const auto* value : {"null", "1", R"({"name": []})", R"(["foo"])"}) {
      const std::string pointer = object.pointer + "/ignored";
      EXPECT_EQ(Load(With(kSampleComponent, pointer, value)), expected) << pointer;
    }
  }
}

TEST(RequiredKeys, IncludeTheValueOfAConstant) {
  for (const std::string constant : {"/structures/0/constants/0", "/services/0/constants/0"}) {
    const std::string pointer = kPackage + constant + "/value";
    ExpectFailure(Without(kSampleComponent, pointer), MissingField("value"), pointer);
    ExpectFailure(Without(With(kSampleComponent, kPackage + constant + "/type", "1"), pointer),
                  InvalidField("type"), pointer + " and an invalid type");
  }
}

}  // namespace
}  // namespace Zelk::Testing
