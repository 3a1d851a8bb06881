#include "fuzz/seeds/seed_folder.h"
#include "metamodel/sample_component.h"
#include "support/builders.h"
#include "support/file_text.h"

namespace Zelk::Fuzzing {
namespace {

using namespace Testing;  // the builders read as sentences

Part Typed(const std::string& field, const std::string& type) {
  return {"fields", field, {}, {}, R"(, "type": )" + type};
}

std::string Builtin(const std::string& text) {
  return R"({"category": "builtin", "primitive_type": ")" + text + "\"}";
}

std::string Generic(const std::string& text, const std::string& element) {
  return R"({"category": "Generic", "generic_type": ")" + text + R"(", "element_type": )" +
         element + "}";
}

std::string Map(const std::string& key, const std::string& value) {
  return R"({"category": "GENERIC", "generic_type": "map", "map_key_type": )" + key +
         R"(, "map_value_type": )" + value + "}";
}

std::string UserDefined(const std::string& kind) {
  return R"({"category": "USER_DEFINED", "user_defined_type": ")" + kind +
         R"(", "user_defined_type_name": "foo"})";
}

Part ConstantOf(const std::string& category, const std::string& type, const std::string& value) {
  return {"constants",
          category + type,
          {},
          {},
          R"(, "type": {"category": ")" + category + R"(", "type": ")" + type + R"("}, "value": )" +
              value};
}

std::string FileOf(const Part& structure) {
  return JsonText(Json(MetamodelFile(Component("c", {Package("p", {structure})}))));
}

const char* const kBuiltins[] = {
    "VOID",      "BOOLEAN", "LONG", "DOUBLE", "STRING",    "BINARY",           "SECRET",
    "DATE_TIME", "ID",      "URI",  "OPAQUE", "ANY_ERROR", "DYNAMIC_STRUCTURE"};

/// A structure with a field of each built-in type, and one with constants of each.
void AddBuiltins(const SeedFolder& seeds) {
  const Part none = Structure("s");
  std::string fields;
  std::string constants;
  for (const std::string builtin : kBuiltins) {
    fields += (fields.empty() ? "" : ",") + Typed(builtin, Builtin(builtin)).Json();
    constants += (constants.empty() ? "" : ",") + ConstantOf("PRIMITIVE", builtin, R"("")").Json() +
                 "," + ConstantOf("LIST", builtin, "[]").Json();
  }
  const std::string structure = "/metamodel/component/packages/0/structures/0/";
  seeds.Add("builtin-all", With(FileOf(none), structure + "fields", "[" + fields + "]"));
  seeds.Add("constant-all", With(FileOf(none), structure + "constants", "[" + constants + "]"));
  for (const std::string builtin : {"EXCEPTION", "FOO"}) {
    seeds.Add("builtin-" + builtin, FileOf(Structure("s", {Typed("f", Builtin(builtin))})));
    seeds.Add("constant-" + builtin,
              FileOf(Structure("s", {ConstantOf("PRIMITIVE", builtin, R"("")")})));
  }
  seeds.Add("constant-no-string", FileOf(Structure("s", {ConstantOf("Primitive", "String", "0")})));
}

void AddTypes(const SeedFolder& seeds) {
  const std::string string = Builtin("String");
  for (const std::string generic : {"LIST", "OPTIONAL", "SET", "MAP", "BAG"}) {
    seeds.Add("generic-" + generic, FileOf(Structure("s", {Typed("f", Generic(generic, string))})));
  }
  std::string nested = Map(UserDefined("Structure"), UserDefined("Enumeration"));
  seeds.Add("map", FileOf(Structure("s", {Typed("f", Map(string, UserDefined("foo")))})));
  for (int i = 0; i < 20; ++i) nested = Map(Generic("Set", nested), string);
  seeds.Add("nested", FileOf(Structure("s", {Typed("f", nested)})));
  seeds.Add("primitive", FileOf(Structure("s", {Typed("f", R"({"category": "primitive",
                                                               "primitive_type": "id"})")})));
}

void AddAnnotations(const SeedFolder& seeds) {
  seeds.Add("model", FileOf(ModelOf("s", "r")));
  seeds.Add(
      "model-of-two",
      FileOf(Structure("s", {ModelKey("f", "r"), ModelKey("g", "q")}).Annotated(R"("Model": {})")));
  int number = 0;
  for (const std::string value : {"[]", R"(["q", "r"])", R"([""])", "[0]", "0", "{}"}) {
    const std::string resource = R"("Resource": {"value": )" + value + "}";
    seeds.Add("resource-" + std::to_string(++number),
              FileOf(Structure("s", {Field("f").Annotated(R"("ModelKey": {}, )" + resource)})
                         .Annotated(R"("Model": {})")));
  }
  seeds.Add("repeated-annotation",
            FileOf(Structure("s").Annotated(R"("a": {"b": "1", "b": "2"}, "a": {"b": []})")));
}

/// The project's own file in slices: each package with the first of its parts, as far as it is
/// small.
void AddOwnPackages(const SeedFolder& seeds, const std::string& json) {
  const auto document = Json(json);
  int number = 0;
  for (const auto& package : document["metamodel"]["component"]["packages"].GetArray()) {
    std::string slice = JsonText(package);
    for (const std::string parts : {"services", "structures", "enumerations"}) {
      const auto& array = package[parts.c_str()];
      const bool keep = !array.Empty() && JsonText(array[0]).size() < 3000;
      slice = With(slice, "/" + parts, keep ? "[" + JsonText(array[0]) + "]" : "[]");
    }
    seeds.Add("own-package-" + std::to_string(++number),
              With(json, "/metamodel/component/packages", "[" + slice + "]"));
  }
}

}  // namespace

void MakeMetamodelSeeds(const std::filesystem::path& corpus, const std::filesystem::path& sources) {
  const SeedFolder seeds(corpus / "metamodel_parser");
  const std::string sample = JsonText(Json(kSampleComponent));
  seeds.Add("sample", sample);
  seeds.AddBroken(sample, {"metadata"});
  AddBuiltins(seeds);
  AddTypes(seeds);
  AddAnnotations(seeds);
  AddSyntaxSeeds(seeds);
  AddOwnPackages(seeds, FileText(sources / "metadata/metamodel/zelk-metadata.json"));
  for (const auto* name : {"other_root", "several_messages", "syntax_error", "truncated"}) {
    seeds.Add(std::string("tool-") + name,
              FileText(sources / "tests/data/tool" / (std::string(name) + ".json")));
  }
}

}  // namespace Zelk::Fuzzing
