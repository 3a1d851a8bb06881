#include <vector>

#include "domains/enum_text.h"
#include "domains/metamodel_shapes.h"

namespace Zelk::Tool {
namespace {

using Render::JsonWriter;

/// A text to append, or a type whose text is still to be worked out.
struct TextStep {
  const char* text;
  const Bindings::Metamodel::Type* type;
};

/// Appends the beginning of a generic type's text and leaves its rest as work, the next step last.
void OpenText(const Bindings::Metamodel::GenericInstantiation& generic, std::string& text,
              std::vector<TextStep>& work) {
  text += EnumText(generic.generic_type) + '<';
  work.push_back({">", nullptr});
  if (generic.map_value_type) {
    work.push_back({nullptr, generic.map_value_type.get()});
    work.push_back({", ", nullptr});
  }
  const auto& first = generic.map_key_type ? generic.map_key_type : generic.element_type;
  if (first) work.push_back({nullptr, first.get()});
}

/// A member of a generic instantiation to write, or, without a key, the end of an object.
struct JsonStep {
  const char* key;
  const Bindings::Metamodel::Type* type;
};

void WriteBuiltinType(JsonWriter& json, const Bindings::Metamodel::Type& type) {
  json.Key("builtin_type");
  if (type.builtin_type) {
    json.String(EnumText(*type.builtin_type));
  } else {
    json.Null();
  }
}

void WriteUserDefinedType(JsonWriter& json, const Bindings::Metamodel::Type& type) {
  json.Key("user_defined_type");
  if (!type.user_defined_type) {
    json.Null();
    return;
  }
  json.StartObject();
  json.Member("resource_type", type.user_defined_type->resource_type);
  json.Member("resource_id", type.user_defined_type->resource_id);
  json.EndObject();
}

/// Writes the members up to the first nested type and leaves the rest as work, the next step last.
void OpenJson(JsonWriter& json, const Bindings::Metamodel::Type& type,
              std::vector<JsonStep>& work) {
  json.Member("category", EnumText(type.category));
  WriteBuiltinType(json, type);
  WriteUserDefinedType(json, type);
  json.Key("generic_instantiation");
  if (!type.generic_instantiation) return json.Null();
  const Bindings::Metamodel::GenericInstantiation& generic = *type.generic_instantiation;
  json.StartObject();
  json.Member("generic_type", EnumText(generic.generic_type));
  work.push_back({nullptr, nullptr});
  work.push_back({"map_value_type", generic.map_value_type.get()});
  work.push_back({"map_key_type", generic.map_key_type.get()});
  work.push_back({"element_type", generic.element_type.get()});
}

void WriteStep(JsonWriter& json, const JsonStep& step, std::vector<JsonStep>& work) {
  if (step.key == nullptr) return json.EndObject();
  json.Key(step.key);
  if (step.type == nullptr) return json.Null();
  json.StartObject();
  work.push_back({nullptr, nullptr});
  OpenJson(json, *step.type, work);
}

}  // namespace

std::string TypeText(const Bindings::Metamodel::Type& type) {
  std::string text;
  std::vector<TextStep> work{{nullptr, &type}};
  while (!work.empty()) {
    const TextStep step = work.back();
    work.pop_back();
    if (step.type == nullptr) {
      text += step.text;
    } else if (step.type->generic_instantiation) {
      OpenText(*step.type->generic_instantiation, text, work);
    } else if (step.type->user_defined_type) {
      text += step.type->user_defined_type->resource_id;
    } else if (step.type->builtin_type) {
      text += EnumText(*step.type->builtin_type);
    }
  }
  return text;
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::Type& type) {
  std::vector<JsonStep> work;
  OpenJson(json.Json(), type, work);
  while (!work.empty()) {
    const JsonStep step = work.back();
    work.pop_back();
    WriteStep(json.Json(), step, work);
  }
}

}  // namespace Zelk::Tool
