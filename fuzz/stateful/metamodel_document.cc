#include <array>

#include "stateful/document.h"
#include "stateful/names.h"

namespace Zelk::Fuzzing {
namespace {

using Member = std::pair<std::string, Json>;

const std::array<std::string, 5> kAnnotations = {"Resource", "Model", "ModelKey", "note", ""};
const std::array<std::string, 3> kElements = {"value", "other", WithZero("value", "")};
const std::array<std::string, 4> kCategories = {"BUILTIN", "PRIMITIVE", "USER_DEFINED", "GENERIC"};
const std::array<std::string, 6> kBuiltinTypes = {"STRING", "LONG",      "ANY_ERROR",
                                                  "OPAQUE", "EXCEPTION", "VOID"};
const std::array<std::string, 4> kConstantTypes = {"STRING", "LONG", "BOOLEAN", "DOUBLE"};
const std::array<std::string, 4> kGenericTypes = {"LIST", "MAP", "OPTIONAL", "SET"};
const std::array<std::string, 4> kUserTypes = {"Structure", "Enumeration", "structure", ""};

Json Name(Input& input) {
  return JsonString(input.Pick(kNames));
}

Json Resource(Input& input) {
  return JsonString(input.Pick(kResources));
}

Json ElementValue(Input& input) {
  return input.OnceIn(4) ? DrawnArray(input, 2, Resource) : Resource(input);
}

Json Annotation(Input& input) {
  std::vector<Member> elements;
  for (auto count = input.Below(3); count > 0; --count) {
    elements.emplace_back(input.Pick(kElements), ElementValue(input));
  }
  return JsonObject(std::move(elements));
}

Json Metadata(Input& input, std::vector<Member> annotations = {}) {
  for (auto count = input.Below(8); count > 5; --count) {
    annotations.emplace_back(input.Pick(kAnnotations), Annotation(input));
  }
  return JsonObject(std::move(annotations));
}

Json Documentation(Input& input) {
  return JsonString(input.FreshText());
}

Json Type(Input& input, int depth);

Json GenericType(Input& input, const Json& category, int depth) {
  const auto& generic = input.Pick(kGenericTypes);
  const Json type = JsonString(AnyCase(input, generic));
  if (generic != "MAP") {
    return Arranged(
        input,
        {{"category", category}, {"generic_type", type}, {"element_type", Type(input, depth + 1)}});
  }
  Json key = Type(input, depth + 1);
  return Arranged(input, {{"category", category},
                          {"generic_type", type},
                          {"map_key_type", std::move(key)},
                          {"map_value_type", Type(input, depth + 1)}});
}

Json Type(Input& input, int depth) {
  const auto choice = depth < 3 ? input.Below(kCategories.size()) : 0;
  const Json category = JsonString(AnyCase(input, kCategories[choice]));
  if (kCategories[choice] == "GENERIC") return GenericType(input, category, depth);
  if (kCategories[choice] == "USER_DEFINED") {
    return Arranged(input, {{"category", category},
                            {"user_defined_type", JsonString(input.Pick(kUserTypes))},
                            {"user_defined_type_name", Name(input)}});
  }
  return Arranged(input,
                  {{"category", category},
                   {"primitive_type", JsonString(AnyCase(input, input.Pick(kBuiltinTypes)))}});
}

/// A named object with its texts and annotations, to which the caller adds.
std::vector<Member> Described(Input& input) {
  return {{"name", Name(input)},
          {"documentation", Documentation(input)},
          {"metadata", Metadata(input)}};
}

Json With(Input& input, std::vector<Member> members, std::vector<Member> more) {
  for (auto& member : more) members.push_back(std::move(member));
  return Arranged(input, std::move(members));
}

Json Field(Input& input) {
  return With(input, Described(input), {{"type", Type(input, 0)}});
}

/// A field that may make its structure a model.
Json KeyField(Input& input) {
  const Json key = JsonObject({{"value", ElementValue(input)}});
  return Arranged(input,
                  {{"name", Name(input)},
                   {"documentation", Documentation(input)},
                   {"metadata", Metadata(input, {{"Resource", key}, {"ModelKey", JsonObject({})}})},
                   {"type", Type(input, 3)}});
}

Json EnumerationValue(Input& input) {
  return Arranged(input, Described(input));
}

Json Enumeration(Input& input) {
  return With(input, Described(input), {{"values", DrawnArray(input, 2, EnumerationValue)}});
}

Json Constant(Input& input) {
  const Json type = Arranged(
      input, {{"category", JsonString(AnyCase(input, input.OnceIn(4) ? "LIST" : "PRIMITIVE"))},
              {"type", JsonString(AnyCase(input, input.Pick(kConstantTypes)))}});
  Json value = input.OnceIn(4) ? JsonNumber() : Documentation(input);
  return Arranged(input, {{"name", Name(input)},
                          {"documentation", Documentation(input)},
                          {"type", type},
                          {"value", std::move(value)}});
}

Json Structure(Input& input) {
  const bool is_model = input.OnceIn(2);
  std::vector<Member> annotations;
  if (is_model) annotations.emplace_back("Model", JsonObject({}));
  return Arranged(input,
                  {{"name", Name(input)},
                   {"type", JsonString(AnyCase(input, input.OnceIn(4) ? "ERROR" : "STRUCTURE"))},
                   {"documentation", Documentation(input)},
                   {"metadata", Metadata(input, std::move(annotations))},
                   {"enumerations", DrawnArray(input, 2, Enumeration)},
                   {"constants", DrawnArray(input, 1, Constant)},
                   {"fields", DrawnArray(input, 2, is_model ? KeyField : Field)}});
}

Json Error(Input& input) {
  return Arranged(
      input, {{"user_defined_type_name", Name(input)}, {"documentation", Documentation(input)}});
}

Json Operation(Input& input) {
  return With(input, Described(input),
              {{"params", DrawnArray(input, 1, Field)},
               {"result", Arranged(input, {{"documentation", Documentation(input)},
                                           {"metadata", Metadata(input)},
                                           {"type", Type(input, 1)}})},
               {"errors", DrawnArray(input, 1, Error)}});
}

Json Service(Input& input) {
  return With(input, Described(input),
              {{"enumerations", DrawnArray(input, 2, Enumeration)},
               {"structures", DrawnArray(input, 2, Structure)},
               {"constants", DrawnArray(input, 2, Constant)},
               {"operations", DrawnArray(input, 2, Operation)}});
}

Json Package(Input& input) {
  return With(input, Described(input),
              {{"enumerations", DrawnArray(input, 2, Enumeration)},
               {"structures", DrawnArray(input, 2, Structure)},
               {"services", DrawnArray(input, 3, Service)}});
}

}  // namespace

Json MetamodelDocument(Input& input) {
  const Json component =
      With(input, Described(input), {{"packages", DrawnArray(input, 3, Package)}});
  return Arranged(input, {{"metamodel", Arranged(input, {{"component", component}})}});
}

}  // namespace Zelk::Fuzzing
