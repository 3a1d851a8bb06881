#pragma once

#include <array>
#include <functional>
#include <istream>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "common/json/json_document.h"

namespace Zelk::Provider::Metadata::Metamodel {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// A record and its key in the map that it belongs to; a null pointer if it could not be parsed.
template <typename Record>
using Named = std::pair<std::string, std::shared_ptr<const Record>>;

using TypePtr = std::shared_ptr<const Bindings::Metamodel::Type>;

/// The built-in types of one load. Each is made when it is first needed and shared by all records.
class BuiltinTypes {
 public:
  const TypePtr& Get(Bindings::Metamodel::TypeEnumerations::BuiltinType builtin_type);

 private:
  std::array<TypePtr, Bindings::Metamodel::TypeEnumerations::BuiltinType::UNKNOWN + 1> types_;
};

/// Reads Metamodel files. Has no state of its own: the callbacks hold the types that the records of
/// one file share. Every operation appends its messages to `errors`. It reads the keys of an object
/// in the order of the format and stops at the first failure.
class JsonMetadataParser {
 public:
  /// The parser calls these in document order, on the caller's thread. It calls `resource` and
  /// `model` during a parse that may still fail.
  struct RegisterCallbacks {
    /// Called once, with the complete component, after everything was parsed.
    std::function<void(const std::shared_ptr<Bindings::Metamodel::ComponentInfo>&)> component;
    /// Called with each resource type in a Resource annotation.
    std::function<void(const std::string& resource_id)> resource;
    /// Called with each resource type and the name of a structure that is a model of it.
    std::function<void(const std::string& resource_id, const std::string& structure)> model;

    /// The types that the records of one load share.
    mutable BuiltinTypes builtin_types{};
  };

  /// Reads one file. Returns true if all of it was parsed; `callbacks.component` was called then.
  static bool LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks, Errors& errors);
  static bool LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks, Errors& errors);

  // In component_parser.cc: the document down to operations.
  static bool ParseMetamodel(const RegisterCallbacks& callbacks, const JsonValue& value,
                             Errors& errors);
  static bool ParseComponent(const RegisterCallbacks& callbacks, const JsonValue& value,
                             Errors& errors);
  static Named<Bindings::Metamodel::PackageInfo> ParsePackage(const RegisterCallbacks& callbacks,
                                                              const JsonValue& value,
                                                              Errors& errors);
  static Named<Bindings::Metamodel::ServiceInfo> ParseService(const RegisterCallbacks& callbacks,
                                                              const JsonValue& value,
                                                              Errors& errors);
  static Named<Bindings::Metamodel::OperationInfo> ParseOperation(
      const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors);
  static bool ParseResult(const RegisterCallbacks& callbacks, const JsonValue& value,
                          std::shared_ptr<const Bindings::Metamodel::OperationResultInfo>& result,
                          Errors& errors);
  static std::shared_ptr<const Bindings::Metamodel::ErrorInfo> ParseError(const JsonValue& value,
                                                                          Errors& errors);

  // In annotation_parser.cc: annotations, resources and models.
  static bool ParseMetadata(const RegisterCallbacks& callbacks, const JsonValue& value,
                            Bindings::Metamodel::MetadataMap& map, Errors& errors);
  using ElementParser = std::shared_ptr<const Bindings::Metamodel::ElementValue> (*)(
      const JsonValue& value, Errors& errors);
  static std::shared_ptr<const Bindings::Metamodel::ElementMap> ParseElementMap(
      const JsonValue& value, ElementParser parse_element, Errors& errors);
  static std::shared_ptr<const Bindings::Metamodel::ElementValue> ParseStringElementValue(
      const JsonValue& value, Errors& errors);
  static void HandleResource(const RegisterCallbacks& callbacks,
                             const Bindings::Metamodel::ElementMap& element_map);
  static void HandleModelInfo(const RegisterCallbacks& callbacks,
                              const Bindings::Metamodel::StructureInfo& structure);

  // In structure_parser.cc and constant_parser.cc: structures, enumerations and constants.
  static std::shared_ptr<const Bindings::Metamodel::FieldInfo> ParseFieldInfo(
      const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors);
  static Named<Bindings::Metamodel::StructureInfo> ParseStructure(
      const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors);
  static Named<Bindings::Metamodel::EnumerationInfo> ParseEnumeration(
      const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors);
  static std::shared_ptr<const Bindings::Metamodel::EnumerationValueInfo> ParseEnumValues(
      const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors);
  static Named<Bindings::Metamodel::ConstantInfo> ParseConstant(const RegisterCallbacks& callbacks,
                                                                const JsonValue& value,
                                                                Errors& errors);

  /// The category of the constant's value, and the type of the constant.
  using ConstantType = std::pair<Bindings::Metamodel::ConstantValueEnumerations::Category, TypePtr>;
  static bool ParseConstantType(const RegisterCallbacks& callbacks, const JsonValue& value,
                                ConstantType& result, Errors& errors);
  /// Never returns null. The primitive value of the result is null if it cannot be read.
  static std::shared_ptr<const Bindings::Metamodel::ConstantValue> ParseConstantPrimitiveValue(
      const JsonValue& value, const char* name, Errors& errors,
      const Bindings::Metamodel::PrimitiveValueEnumerations::Type& primitive_type);
  static std::shared_ptr<const Bindings::Metamodel::PrimitiveValue> ParsePrimitiveValue(
      const JsonValue& value, const char* name, Errors& errors,
      const Bindings::Metamodel::PrimitiveValueEnumerations::Type& primitive_type);

  // In type_parser.cc: types, nested to any depth.
  static bool ParseType(const RegisterCallbacks& callbacks, const JsonValue& value, TypePtr& type,
                        Errors& errors);
  static TypePtr ParseUserDefinedType(const JsonValue& value, Errors& errors);
  static TypePtr ParseGenericType(const RegisterCallbacks& callbacks, const JsonValue& value,
                                  Errors& errors);
  static bool ParseCategoryEnum(const JsonValue& value, const char* name,
                                Bindings::Metamodel::TypeEnumerations::Category& result,
                                Errors& errors);
  static bool ParseBinEnum(const JsonValue& value, const char* name,
                           Bindings::Metamodel::TypeEnumerations::BuiltinType& result,
                           Errors& errors);

  static TypePtr GetBuildinType(Bindings::Metamodel::TypeEnumerations::BuiltinType builtin_type);
  static TypePtr GetUserDefinedType(
      std::shared_ptr<const Bindings::Metamodel::UserDefinedType> user_defined_type);
  static TypePtr GetGenericType(
      Bindings::Metamodel::GenericInstantiationEnumerations::GenericType generic_type,
      TypePtr element_type);
  static TypePtr GetGenericType(TypePtr key_type, TypePtr value_type);
};

}  // namespace Zelk::Provider::Metadata::Metamodel
