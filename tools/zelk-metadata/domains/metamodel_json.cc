#include "domains/enum_text.h"
#include "domains/metamodel_shapes.h"

namespace Zelk::Tool {

namespace {

/// The two members that end most records.
template <typename Described>
void WriteDescription(RecordWriter& json, const Described& record) {
  json.Member("metadata", record.metadata);
  json.Member("documentation", record.documentation);
}

}  // namespace

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ElementValue& element) {
  json.Member("type", EnumText(element.type));
  json.Member("string_value", element.string_value);
  json.Member("list_value", element.list_value);
  json.Member("structure_id", element.structure_id);
  json.Member("structure_ids", element.structure_ids);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ElementMap& annotation) {
  json.Member("elements", annotation.elements);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::FieldInfo& field) {
  json.Member("name", field.name);
  json.Member("type", field.type);
  WriteDescription(json, field);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::PrimitiveValue& value) {
  json.Member("type", EnumText(value.type));
  json.Member("string_value", value.string_value);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ConstantValue& value) {
  json.Member("category", EnumText(value.category));
  json.Member("primitive_value", value.primitive_value);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ConstantInfo& constant) {
  json.Member("type", constant.type);
  json.Member("value", constant.value);
  json.Member("documentation", constant.documentation);
}

static void WriteMembers(RecordWriter& json,
                         const Bindings::Metamodel::EnumerationValueInfo& value) {
  json.Member("value", value.value);
  WriteDescription(json, value);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ErrorInfo& error) {
  json.Member("structure_name", error.structure_name);
  json.Member("documentation", error.documentation);
}

static void WriteMembers(RecordWriter& json,
                         const Bindings::Metamodel::OperationResultInfo& result) {
  json.Member("type", result.type);
  WriteDescription(json, result);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::EnumerationInfo& enumeration) {
  json.Member("name", enumeration.name);
  json.Member("values", enumeration.values);
  WriteDescription(json, enumeration);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::StructureInfo& structure) {
  json.Member("name", structure.name);
  json.Member("type", EnumText(structure.type));
  json.Member("enumerations", structure.enumerations);
  json.Member("constants", structure.constants);
  json.Member("fields", structure.fields);
  WriteDescription(json, structure);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::OperationInfo& operation) {
  json.Member("name", operation.name);
  json.Member("params", operation.params);
  json.Member("output", operation.output);
  json.Member("errors", operation.errors);
  WriteDescription(json, operation);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ServiceInfo& service) {
  json.Member("name", service.name);
  json.Member("operations", service.operations);
  json.Member("structures", service.structures);
  json.Member("enumerations", service.enumerations);
  json.Member("constants", service.constants);
  WriteDescription(json, service);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::PackageInfo& package) {
  json.Member("name", package.name);
  json.Member("structures", package.structures);
  json.Member("enumerations", package.enumerations);
  json.Member("services", package.services);
  WriteDescription(json, package);
}

static void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ComponentInfo& component) {
  json.Member("name", component.name);
  json.Member("packages", component.packages);
  WriteDescription(json, component);
}

void WriteMembers(RecordWriter& json, const Bindings::Metamodel::ComponentData& component) {
  json.Member("info", component.info);
  json.Member("fingerprint", component.fingerprint);
}

}  // namespace Zelk::Tool
