#include "domains/enum_text.h"
#include "domains/json_records.h"
#include "domains/metamodel_shapes.h"

namespace Zelk::Tool {

// Static rather than in the unnamed namespace, where the templates below would not find them.
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ComponentInfo& component);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ConstantInfo& constant);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ConstantValue& value);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ElementMap& annotation);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ElementValue& element);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::EnumerationValueInfo& value);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ErrorInfo& error);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::FieldInfo& field);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::OperationResultInfo& result);
static void WriteJson(JsonWriter& json, const Bindings::Metamodel::PrimitiveValue& value);

namespace {

void WriteStrings(JsonWriter& json, const char* name,
                  const boost::optional<std::list<std::string>>& strings) {
  json.Key(name);
  if (strings) {
    json.StringArray(*strings);
  } else {
    json.Null();
  }
}

/// The two members that end most records.
template <typename Described>
void WriteDescription(JsonWriter& json, const Described& record) {
  WriteMap(json, "metadata", record.metadata);
  json.Member("documentation", record.documentation);
}

}  // namespace

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ElementValue& element) {
  json.StartObject();
  json.Member("type", EnumText(element.type));
  json.Member("string_value", element.string_value);
  WriteStrings(json, "list_value", element.list_value);
  json.Member("structure_id", element.structure_id);
  WriteStrings(json, "structure_ids", element.structure_ids);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ElementMap& annotation) {
  json.StartObject();
  WriteMap(json, "elements", annotation.elements);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::FieldInfo& field) {
  json.StartObject();
  json.Member("name", field.name);
  WriteOne(json, "type", field.type);
  WriteDescription(json, field);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::PrimitiveValue& value) {
  json.StartObject();
  json.Member("type", EnumText(value.type));
  json.Member("string_value", value.string_value);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ConstantValue& value) {
  json.StartObject();
  json.Member("category", EnumText(value.category));
  WriteOne(json, "primitive_value", value.primitive_value);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ConstantInfo& constant) {
  json.StartObject();
  WriteOne(json, "type", constant.type);
  WriteOne(json, "value", constant.value);
  json.Member("documentation", constant.documentation);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::EnumerationValueInfo& value) {
  json.StartObject();
  json.Member("value", value.value);
  WriteDescription(json, value);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ErrorInfo& error) {
  json.StartObject();
  json.Member("structure_name", error.structure_name);
  json.Member("documentation", error.documentation);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::OperationResultInfo& result) {
  json.StartObject();
  WriteOne(json, "type", result.type);
  WriteDescription(json, result);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::EnumerationInfo& enumeration) {
  json.StartObject();
  json.Member("name", enumeration.name);
  WriteList(json, "values", enumeration.values);
  WriteDescription(json, enumeration);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::StructureInfo& structure) {
  json.StartObject();
  json.Member("name", structure.name);
  json.Member("type", EnumText(structure.type));
  WriteMap(json, "enumerations", structure.enumerations);
  WriteMap(json, "constants", structure.constants);
  WriteList(json, "fields", structure.fields);
  WriteDescription(json, structure);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::OperationInfo& operation) {
  json.StartObject();
  json.Member("name", operation.name);
  WriteList(json, "params", operation.params);
  WriteOne(json, "output", operation.output);
  WriteList(json, "errors", operation.errors);
  WriteDescription(json, operation);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::ServiceInfo& service) {
  json.StartObject();
  json.Member("name", service.name);
  WriteMap(json, "operations", service.operations);
  WriteMap(json, "structures", service.structures);
  WriteMap(json, "enumerations", service.enumerations);
  WriteMap(json, "constants", service.constants);
  WriteDescription(json, service);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::PackageInfo& package) {
  json.StartObject();
  json.Member("name", package.name);
  WriteMap(json, "structures", package.structures);
  WriteMap(json, "enumerations", package.enumerations);
  WriteMap(json, "services", package.services);
  WriteDescription(json, package);
  json.EndObject();
}

static void WriteJson(JsonWriter& json, const Bindings::Metamodel::ComponentInfo& component) {
  json.StartObject();
  json.Member("name", component.name);
  WriteMap(json, "packages", component.packages);
  WriteDescription(json, component);
  json.EndObject();
}

void WriteJson(JsonWriter& json, const Bindings::Metamodel::ComponentData& component) {
  json.StartObject();
  WriteOne(json, "info", component.info);
  json.Member("fingerprint", component.fingerprint);
  json.EndObject();
}

}  // namespace Zelk::Tool
