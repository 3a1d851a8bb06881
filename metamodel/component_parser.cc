#include "common/json/json_member.h"
#include "metamodel/json_metadata_parser.h"
#include "metamodel/member_parsers.h"

namespace Zelk::Provider::Metadata::Metamodel {

bool JsonMetadataParser::LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks,
                                      Errors& errors) {
  return LoadMetadata(TextBuffer(ReadAll(in)), callbacks, errors);
}

bool JsonMetadataParser::LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks,
                                      Errors& errors) {
  JsonDocument document(std::move(text));
  if (!document.Parse(MessageId::kMetamodelParseError, errors)) return false;
  return JsonObjectMember<void>(document.Root(), "metamodel",
                                WithCallbacks(callbacks, ParseMetamodel), errors)
      .Ok();
}

bool JsonMetadataParser::ParseMetamodel(const RegisterCallbacks& callbacks, const JsonValue& value,
                                        Errors& errors) {
  return JsonObjectMember<void>(value, "component", WithCallbacks(callbacks, ParseComponent),
                                errors)
      .Ok();
}

bool JsonMetadataParser::ParseComponent(const RegisterCallbacks& callbacks, const JsonValue& value,
                                        Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return false;
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return false;
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return false;
  MapMember<Bindings::Metamodel::PackageInfo> packages(
      value, "packages", WithCallbacks(callbacks, ParsePackage), errors);
  if (!packages.Ok()) return false;
  callbacks.component(std::make_shared<Bindings::Metamodel::ComponentInfo>(
      name.Take(), packages.Take(), metadata.Take(), documentation.Take()));
  return true;
}

Named<Bindings::Metamodel::PackageInfo> JsonMetadataParser::ParsePackage(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return {};
  MapMember<Bindings::Metamodel::EnumerationInfo> enumerations(
      value, "enumerations", WithCallbacks(callbacks, ParseEnumeration), errors);
  if (!enumerations.Ok()) return {};
  MapMember<Bindings::Metamodel::StructureInfo> structures(
      value, "structures", WithCallbacks(callbacks, ParseStructure), errors);
  if (!structures.Ok()) return {};
  MapMember<Bindings::Metamodel::ServiceInfo> services(
      value, "services", WithCallbacks(callbacks, ParseService), errors);
  if (!services.Ok()) return {};
  auto package = std::make_shared<Bindings::Metamodel::PackageInfo>(
      name.Value(), structures.Take(), enumerations.Take(), services.Take(), metadata.Take(),
      documentation.Take());
  return {name.Take(), std::move(package)};
}

Named<Bindings::Metamodel::ServiceInfo> JsonMetadataParser::ParseService(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return {};
  MapMember<Bindings::Metamodel::EnumerationInfo> enumerations(
      value, "enumerations", WithCallbacks(callbacks, ParseEnumeration), errors);
  if (!enumerations.Ok()) return {};
  MapMember<Bindings::Metamodel::StructureInfo> structures(
      value, "structures", WithCallbacks(callbacks, ParseStructure), errors);
  if (!structures.Ok()) return {};
  MapMember<Bindings::Metamodel::ConstantInfo> constants(
      value, "constants", WithCallbacks(callbacks, ParseConstant), errors);
  if (!constants.Ok()) return {};
  MapMember<Bindings::Metamodel::OperationInfo> operations(
      value, "operations", WithCallbacks(callbacks, ParseOperation), errors);
  if (!operations.Ok()) return {};
  auto service = std::make_shared<Bindings::Metamodel::ServiceInfo>(
      name.Value(), operations.Take(), structures.Take(), enumerations.Take(), constants.Take(),
      metadata.Take(), documentation.Take());
  return {name.Take(), std::move(service)};
}

Named<Bindings::Metamodel::OperationInfo> JsonMetadataParser::ParseOperation(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return {};
  ListMember<Bindings::Metamodel::FieldInfo> params(
      value, "params", WithCallbacks(callbacks, ParseFieldInfo), errors);
  if (!params.Ok()) return {};
  JsonObjectMember<std::shared_ptr<const Bindings::Metamodel::OperationResultInfo>> output(
      value, "result", WithCallbacks(callbacks, ParseResult), errors);
  if (!output.Ok()) return {};
  ListMember<Bindings::Metamodel::ErrorInfo> failures(value, "errors", ParseError, errors);
  if (!failures.Ok()) return {};
  auto operation = std::make_shared<Bindings::Metamodel::OperationInfo>(
      name.Value(), params.Take(), output.Take(), failures.Take(), metadata.Take(),
      documentation.Take());
  return {name.Take(), std::move(operation)};
}

bool JsonMetadataParser::ParseResult(
    const RegisterCallbacks& callbacks, const JsonValue& value,
    std::shared_ptr<const Bindings::Metamodel::OperationResultInfo>& result, Errors& errors) {
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return false;
  MetadataMember metadata(value, callbacks, errors);
  if (!metadata.Ok()) return false;
  JsonObjectMember<TypePtr> type(value, "type", WithCallbacks(callbacks, ParseType), errors);
  if (!type.Ok()) return false;
  result = std::make_shared<Bindings::Metamodel::OperationResultInfo>(type.Take(), metadata.Take(),
                                                                      documentation.Take());
  return true;
}

std::shared_ptr<const Bindings::Metamodel::ErrorInfo> JsonMetadataParser::ParseError(
    const JsonValue& value, Errors& errors) {
  JsonMember<std::string> structure_name(value, "user_defined_type_name", errors);
  if (!structure_name.Ok()) return nullptr;
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return nullptr;
  return std::make_shared<Bindings::Metamodel::ErrorInfo>(structure_name.Take(),
                                                          documentation.Take());
}

}  // namespace Zelk::Provider::Metadata::Metamodel
