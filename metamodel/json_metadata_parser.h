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

/// A record with the key it goes into its map under; an empty pointer when its parse failed.
template <typename Record>
using Named = std::pair<std::string, std::shared_ptr<const Record>>;

using TypePtr = std::shared_ptr<const Bindings::Metamodel::Type>;

/// The built-in types that one load has met: each is made once and shared by the load's records.
class BuiltinTypes {
 public:
  const TypePtr& Get(Bindings::Metamodel::TypeEnumerations::BuiltinType builtin_type);

 private:
  std::array<TypePtr, Bindings::Metamodel::TypeEnumerations::BuiltinType::UNKNOWN + 1> types_;
};

/// Reads Metamodel files. Keeps no state; every operation appends its messages to `errors`, reads
/// the keys of an object in the order of the format and stops at the first that fails.
class JsonMetadataParser {
 public:
  /// Where the parser reports what it finds, in document order and on the caller's thread.
  /// `resource` and `model` are called while a parse that may still fail goes on.
  struct RegisterCallbacks {
    /// Once, with the whole component, when everything has parsed.
    std::function<void(const std::shared_ptr<Bindings::Metamodel::ComponentInfo>&)> component;
    /// Each resource type that a Resource annotation names.
    std::function<void(const std::string& resource_id)> resource;
    /// Each resource type and the structure that is a model of it.
    std::function<void(const std::string& resource_id, const std::string& structure)> model;

    /// What the records made under these callbacks share.
    mutable BuiltinTypes builtin_types{};
  };

  /// Reads one file; true when the whole of it parsed and `callbacks.component` has been called.
  static bool LoadMetadata(std::istream& in, const RegisterCallbacks& callbacks, Errors& errors);
  static bool LoadMetadata(TextBuffer text, const RegisterCallbacks& callbacks, Errors& errors);

  // The document down to operations: component_parser.cc.
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

  // Annotations and what they make known: metadata_parser.cc.
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

  // Structures, enumerations and constants: structure_parser.cc, constant_parser.cc.
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

  /// What a constant's type object says: how the value is held, and the type of the constant.
  using ConstantType = std::pair<Bindings::Metamodel::ConstantValueEnumerations::Category, TypePtr>;
  static bool ParseConstantType(const RegisterCallbacks& callbacks, const JsonValue& value,
                                ConstantType& result, Errors& errors);
  /// Never null; the primitive value in it is, when there is none to be read.
  static std::shared_ptr<const Bindings::Metamodel::ConstantValue> ParseConstantPrimitiveValue(
      const JsonValue& value, const char* name, Errors& errors,
      const Bindings::Metamodel::PrimitiveValueEnumerations::Type& primitive_type);
  static std::shared_ptr<const Bindings::Metamodel::PrimitiveValue> ParsePrimitiveValue(
      const JsonValue& value, const char* name, Errors& errors,
      const Bindings::Metamodel::PrimitiveValueEnumerations::Type& primitive_type);

  // Types, nested to any depth: type_parser.cc.
  static bool ParseType(const RegisterCallbacks& callbacks, const JsonValue& value, TypePtr& type,
                        Errors& errors);
  static TypePtr ParseUserDefinedType(const JsonValue& value, Errors& errors);
  static TypePtr ParseGenericType(const RegisterCallbacks& callbacks, const JsonValue& value,
                                  Errors& errors);
  static bool ParseCategoryEnum(const JsonValue& value, const char* name, Errors& errors,
                                Bindings::Metamodel::TypeEnumerations::Category& result);
  static bool ParseBinEnum(const JsonValue& value, const char* name, Errors& errors,
                           Bindings::Metamodel::TypeEnumerations::BuiltinType& result);

  static TypePtr GetBuildinType(Bindings::Metamodel::TypeEnumerations::BuiltinType builtin_type);
  static TypePtr GetUserDefinedType(
      std::shared_ptr<const Bindings::Metamodel::UserDefinedType> user_defined_type);
  static TypePtr GetGenericType(
      Bindings::Metamodel::GenericInstantiationEnumerations::GenericType generic_type,
      TypePtr element_type);
  static TypePtr GetGenericType(TypePtr key_type, TypePtr value_type);
};

}  // namespace Zelk::Provider::Metadata::Metamodel
