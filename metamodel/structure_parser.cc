#include "metamodel/json_metadata_parser.h"
#include "metamodel/member_parsers.h"

namespace Zelk::Provider::Metadata::Metamodel {

std::shared_ptr<const Bindings::Metamodel::FieldInfo> JsonMetadataParser::ParseFieldInfo(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return nullptr;
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return nullptr;
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return nullptr;
  JsonObjectMember<TypePtr> type(value, "type", WithCallbacks(callbacks, ParseType), errors);
  if (!type.Ok()) return nullptr;
  return std::make_shared<Bindings::Metamodel::FieldInfo>(name.Take(), type.Take(), metadata.Take(),
                                                          documentation.Take());
}

Named<Bindings::Metamodel::StructureInfo> JsonMetadataParser::ParseStructure(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<Bindings::Metamodel::StructureInfoEnumerations::Type> type(value, "type", errors);
  if (!type.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return {};
  MapMember<Bindings::Metamodel::EnumerationInfo> enumerations(
      value, "enumerations", WithCallbacks(callbacks, ParseEnumeration), errors);
  if (!enumerations.Ok()) return {};
  MapMember<Bindings::Metamodel::ConstantInfo> constants(
      value, "constants", WithCallbacks(callbacks, ParseConstant), errors);
  if (!constants.Ok()) return {};
  ListMember<Bindings::Metamodel::FieldInfo> fields(
      value, "fields", WithCallbacks(callbacks, ParseFieldInfo), errors);
  if (!fields.Ok()) return {};
  auto structure = std::make_shared<Bindings::Metamodel::StructureInfo>(
      name.Value(), type.Take(), enumerations.Take(), constants.Take(), fields.Take(),
      metadata.Take(), documentation.Take());
  HandleModelInfo(callbacks, *structure);
  return {name.Take(), std::move(structure)};
}

Named<Bindings::Metamodel::EnumerationInfo> JsonMetadataParser::ParseEnumeration(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return {};
  ListMember<Bindings::Metamodel::EnumerationValueInfo> values(
      value, "values", WithCallbacks(callbacks, ParseEnumValues), errors);
  if (!values.Ok()) return {};
  auto enumeration = std::make_shared<Bindings::Metamodel::EnumerationInfo>(
      name.Value(), values.Take(), metadata.Take(), documentation.Take());
  return {name.Take(), std::move(enumeration)};
}

std::shared_ptr<const Bindings::Metamodel::EnumerationValueInfo>
JsonMetadataParser::ParseEnumValues(const RegisterCallbacks& callbacks, const JsonValue& value,
                                    Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return nullptr;
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return nullptr;
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return nullptr;
  return std::make_shared<Bindings::Metamodel::EnumerationValueInfo>(name.Take(), metadata.Take(),
                                                                     documentation.Take());
}

}  // namespace Zelk::Provider::Metadata::Metamodel
