#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/metamodel/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records that describe the interfaces of services. A record is built whole and then shared as
// a pointer to const, with its children, by everybody who reads it. Maps are ordered by the bytes
// of their keys and use the name of each child as its key; lists keep the order of the definition.
// A pointer to a child is null, and an optional empty, only where the member says so. None of this
// is checked: a record holds what its constructor was given.

namespace Com::Orvane::Zelk::Metadata::Metamodel {

struct ElementMap;
struct GenericInstantiation;

/// The annotations of a definition by name.
using MetadataMap = std::map<std::string, std::shared_ptr<const ElementMap>>;

/// One value inside an annotation. Only the member that the type selects is set.
struct ZELK_STD_BINDINGS_EXPORT ElementValue {
  ElementValue(ElementValueEnumerations::Type type, boost::optional<std::string> string_value,
               boost::optional<std::list<std::string>> list_value,
               boost::optional<std::string> structure_id,
               boost::optional<std::list<std::string>> structure_ids);

  ElementValueEnumerations::Type type;

  /// For STRING.
  boost::optional<std::string> string_value;

  /// For STRING_LIST.
  boost::optional<std::list<std::string>> list_value;

  /// For STRUCTURE_REFERENCE.
  boost::optional<std::string> structure_id;

  /// For STRUCTURE_REFERENCE_LIST.
  boost::optional<std::list<std::string>> structure_ids;
};

/// One annotation: its values by the name of the element.
struct ZELK_STD_BINDINGS_EXPORT ElementMap {
  explicit ElementMap(std::map<std::string, std::shared_ptr<const ElementValue>> elements);

  std::map<std::string, std::shared_ptr<const ElementValue>> elements;
};

/// A type by name: that of a structure or an enumeration.
struct ZELK_STD_BINDINGS_EXPORT UserDefinedType {
  UserDefinedType(std::string resource_type, std::string resource_id);

  /// The kind of definition, such as "com.orvane.zelk.structure" or "com.orvane.zelk.enumeration".
  std::string resource_type;

  /// The name of the definition. It need not be one that the services know.
  std::string resource_id;
};

/// The type of a parameter, result, field or constant. Only the member that the category selects is
/// set. Types nest to any depth through generic_instantiation, and are released without recursion.
struct ZELK_STD_BINDINGS_EXPORT Type {
  Type(TypeEnumerations::Category category,
       boost::optional<TypeEnumerations::BuiltinType> builtin_type,
       std::shared_ptr<const UserDefinedType> user_defined_type,
       std::shared_ptr<const GenericInstantiation> generic_instantiation);

  TypeEnumerations::Category category;

  /// For BUILTIN, else empty.
  boost::optional<TypeEnumerations::BuiltinType> builtin_type;

  /// For USER_DEFINED, else null.
  std::shared_ptr<const UserDefinedType> user_defined_type;

  /// For GENERIC, else null.
  std::shared_ptr<const GenericInstantiation> generic_instantiation;
};

/// A generic type together with the types that it is made of.
struct ZELK_STD_BINDINGS_EXPORT GenericInstantiation {
  GenericInstantiation(GenericInstantiationEnumerations::GenericType generic_type,
                       std::shared_ptr<const Type> element_type,
                       std::shared_ptr<const Type> map_key_type,
                       std::shared_ptr<const Type> map_value_type);
  GenericInstantiation(const GenericInstantiation& other);
  GenericInstantiation& operator=(const GenericInstantiation& other);

  /// Releases nested types one after another, so that neither the depth of a type nor the size of
  /// the caller's stack limits what can be released. Allocates nothing.
  ~GenericInstantiation();

  GenericInstantiationEnumerations::GenericType generic_type;

  /// For LIST, OPTIONAL and SET, else null.
  std::shared_ptr<const Type> element_type;

  /// For MAP, else null.
  std::shared_ptr<const Type> map_key_type;

  /// For MAP, else null.
  std::shared_ptr<const Type> map_value_type;

 private:
  using Ptr = std::shared_ptr<const GenericInstantiation>;

  static void Release(std::shared_ptr<const Type>& type, Ptr& pending);

  /// Chains the instantiations that wait for their release. It is touched only by the one owner
  /// that is left by then, which is why a record that is const for everybody else can hold it.
  mutable Ptr next_released_;
};

/// One parameter of an operation or one field of a structure.
struct ZELK_STD_BINDINGS_EXPORT FieldInfo {
  FieldInfo(std::string name, std::shared_ptr<const Type> type, MetadataMap metadata,
            std::string documentation);

  std::string name;
  std::shared_ptr<const Type> type;
  MetadataMap metadata;
  std::string documentation;
};

/// One enumerator.
struct ZELK_STD_BINDINGS_EXPORT EnumerationValueInfo {
  EnumerationValueInfo(std::string value, MetadataMap metadata, std::string documentation);

  std::string value;
  MetadataMap metadata;
  std::string documentation;
};

struct ZELK_STD_BINDINGS_EXPORT EnumerationInfo {
  EnumerationInfo(std::string name, std::list<std::shared_ptr<const EnumerationValueInfo>> values,
                  MetadataMap metadata, std::string documentation);

  std::string name;

  /// As defined, repeated enumerators included.
  std::list<std::shared_ptr<const EnumerationValueInfo>> values;

  MetadataMap metadata;
  std::string documentation;
};

/// A single constant value.
struct ZELK_STD_BINDINGS_EXPORT PrimitiveValue {
  PrimitiveValue(PrimitiveValueEnumerations::Type type, boost::optional<std::string> string_value);

  PrimitiveValueEnumerations::Type type;

  /// For STRING, else empty: the other types' values are not kept.
  boost::optional<std::string> string_value;
};

struct ZELK_STD_BINDINGS_EXPORT ConstantValue {
  ConstantValue(ConstantValueEnumerations::Category category,
                std::shared_ptr<const PrimitiveValue> primitive_value);

  ConstantValueEnumerations::Category category;

  /// Null for LIST, and for a PRIMITIVE whose value is not a string.
  std::shared_ptr<const PrimitiveValue> primitive_value;
};

/// A constant. Its name is its key in the map that holds it.
struct ZELK_STD_BINDINGS_EXPORT ConstantInfo {
  ConstantInfo(std::shared_ptr<const Type> type, std::shared_ptr<const ConstantValue> value,
               std::string documentation);

  /// For a list of values, the generic type LIST of the values' type.
  std::shared_ptr<const Type> type;

  std::shared_ptr<const ConstantValue> value;
  std::string documentation;
};

struct ZELK_STD_BINDINGS_EXPORT StructureInfo {
  StructureInfo(std::string name, StructureInfoEnumerations::Type type,
                std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations,
                std::map<std::string, std::shared_ptr<const ConstantInfo>> constants,
                std::list<std::shared_ptr<const FieldInfo>> fields, MetadataMap metadata,
                std::string documentation);

  std::string name;
  StructureInfoEnumerations::Type type;
  std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations;
  std::map<std::string, std::shared_ptr<const ConstantInfo>> constants;

  /// As defined, repeated names included.
  std::list<std::shared_ptr<const FieldInfo>> fields;

  MetadataMap metadata;
  std::string documentation;
};

/// One error that an operation may answer.
struct ZELK_STD_BINDINGS_EXPORT ErrorInfo {
  ErrorInfo(std::string structure_name, std::string documentation);

  /// The name of the structure, of type ERROR, that describes the error.
  std::string structure_name;

  std::string documentation;
};

/// What an operation answers when it succeeds.
struct ZELK_STD_BINDINGS_EXPORT OperationResultInfo {
  OperationResultInfo(std::shared_ptr<const Type> type, MetadataMap metadata,
                      std::string documentation);

  std::shared_ptr<const Type> type;
  MetadataMap metadata;
  std::string documentation;
};

struct ZELK_STD_BINDINGS_EXPORT OperationInfo {
  OperationInfo(std::string name, std::list<std::shared_ptr<const FieldInfo>> params,
                std::shared_ptr<const OperationResultInfo> output,
                std::list<std::shared_ptr<const ErrorInfo>> errors, MetadataMap metadata,
                std::string documentation);

  std::string name;

  /// In the order in which they are passed.
  std::list<std::shared_ptr<const FieldInfo>> params;

  std::shared_ptr<const OperationResultInfo> output;
  std::list<std::shared_ptr<const ErrorInfo>> errors;
  MetadataMap metadata;
  std::string documentation;
};

struct ZELK_STD_BINDINGS_EXPORT ServiceInfo {
  ServiceInfo(std::string name,
              std::map<std::string, std::shared_ptr<const OperationInfo>> operations,
              std::map<std::string, std::shared_ptr<const StructureInfo>> structures,
              std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations,
              std::map<std::string, std::shared_ptr<const ConstantInfo>> constants,
              MetadataMap metadata, std::string documentation);

  std::string name;
  std::map<std::string, std::shared_ptr<const OperationInfo>> operations;
  std::map<std::string, std::shared_ptr<const StructureInfo>> structures;
  std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations;
  std::map<std::string, std::shared_ptr<const ConstantInfo>> constants;
  MetadataMap metadata;
  std::string documentation;
};

/// A package. Its structures and enumerations are those defined beside its services; what is
/// defined inside a service or a structure is found there.
struct ZELK_STD_BINDINGS_EXPORT PackageInfo {
  PackageInfo(std::string name,
              std::map<std::string, std::shared_ptr<const StructureInfo>> structures,
              std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations,
              std::map<std::string, std::shared_ptr<const ServiceInfo>> services,
              MetadataMap metadata, std::string documentation);

  std::string name;
  std::map<std::string, std::shared_ptr<const StructureInfo>> structures;
  std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations;
  std::map<std::string, std::shared_ptr<const ServiceInfo>> services;
  MetadataMap metadata;
  std::string documentation;
};

struct ZELK_STD_BINDINGS_EXPORT ComponentInfo {
  ComponentInfo(std::string name,
                std::map<std::string, std::shared_ptr<const PackageInfo>> packages,
                MetadataMap metadata, std::string documentation);

  std::string name;
  std::map<std::string, std::shared_ptr<const PackageInfo>> packages;
  MetadataMap metadata;
  std::string documentation;
};

/// A component as its service answers it.
struct ZELK_STD_BINDINGS_EXPORT ComponentData {
  ComponentData(std::shared_ptr<const ComponentInfo> info, std::string fingerprint);

  std::shared_ptr<const ComponentInfo> info;

  /// 32 lower-case hex digits that change whenever the source of the component does.
  std::string fingerprint;
};

namespace SourceSvc {

/// What a client gives to register a source.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a registered source was made from.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
