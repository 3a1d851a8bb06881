#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/metamodel/enumerations.h>
#include <com/orvane/zelk/metadata/source_type.h>

// The records that describe the interfaces of services. A record is complete when it is made. It is
// then shared, with its children, as a pointer to const. The key of a map is the name of the child,
// and maps are ordered by the bytes of their keys. Lists keep the order of the file. A pointer is
// null, and an optional empty, only where the member's comment says so. None of this is checked: a
// record holds what its constructor was given.

namespace Com::Orvane::Zelk::Metadata::Metamodel {

struct ElementMap;
struct GenericInstantiation;

/// The annotations of a definition by name.
using MetadataMap = std::map<std::string, std::shared_ptr<const ElementMap>>;

/// One value inside an annotation. The type decides which one of the other members is set.
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

/// One annotation. The key is the name of the element.
struct ZELK_STD_BINDINGS_EXPORT ElementMap {
  explicit ElementMap(std::map<std::string, std::shared_ptr<const ElementValue>> elements);

  std::map<std::string, std::shared_ptr<const ElementValue>> elements;
};

/// A type that is defined elsewhere, by name: a structure or an enumeration.
struct ZELK_STD_BINDINGS_EXPORT UserDefinedType {
  UserDefinedType(std::string resource_type, std::string resource_id);

  /// The kind of definition, such as "com.orvane.zelk.structure" or "com.orvane.zelk.enumeration".
  std::string resource_type;

  /// The name of the definition. The services need not know it.
  std::string resource_id;
};

/// The type of a parameter, result, field or constant. The category decides which one of the other
/// members is set. Types nest to any depth through generic_instantiation and are released without
/// recursion.
struct ZELK_STD_BINDINGS_EXPORT Type {
  Type(TypeEnumerations::Category category,
       boost::optional<TypeEnumerations::BuiltinType> builtin_type,
       std::shared_ptr<const UserDefinedType> user_defined_type,
       std::shared_ptr<const GenericInstantiation> generic_instantiation);

  TypeEnumerations::Category category;

  /// For BUILTIN; otherwise empty.
  boost::optional<TypeEnumerations::BuiltinType> builtin_type;

  /// For USER_DEFINED; otherwise null.
  std::shared_ptr<const UserDefinedType> user_defined_type;

  /// For GENERIC; otherwise null.
  std::shared_ptr<const GenericInstantiation> generic_instantiation;
};

/// A generic type with the types of its elements.
struct ZELK_STD_BINDINGS_EXPORT GenericInstantiation {
  GenericInstantiation(GenericInstantiationEnumerations::GenericType generic_type,
                       std::shared_ptr<const Type> element_type,
                       std::shared_ptr<const Type> map_key_type,
                       std::shared_ptr<const Type> map_value_type);
  GenericInstantiation(const GenericInstantiation& other);
  GenericInstantiation& operator=(const GenericInstantiation& other);

  /// Releases nested types in a loop, so that a type of any depth can be released on a small stack.
  /// Allocates nothing.
  ~GenericInstantiation();

  GenericInstantiationEnumerations::GenericType generic_type;

  /// For LIST, OPTIONAL and SET; otherwise null.
  std::shared_ptr<const Type> element_type;

  /// For MAP; otherwise null.
  std::shared_ptr<const Type> map_key_type;

  /// For MAP; otherwise null.
  std::shared_ptr<const Type> map_value_type;

 private:
  using Ptr = std::shared_ptr<const GenericInstantiation>;

  static void Release(std::shared_ptr<const Type>& type, Ptr& pending);

  /// Links the instantiations that are to be released. Only the last owner uses it, so it is safe
  /// that a shared const record has a mutable member.
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

/// An enumeration.
struct ZELK_STD_BINDINGS_EXPORT EnumerationInfo {
  EnumerationInfo(std::string name, std::list<std::shared_ptr<const EnumerationValueInfo>> values,
                  MetadataMap metadata, std::string documentation);

  std::string name;

  /// A repeated enumerator is kept.
  std::list<std::shared_ptr<const EnumerationValueInfo>> values;

  MetadataMap metadata;
  std::string documentation;
};

/// A single constant value.
struct ZELK_STD_BINDINGS_EXPORT PrimitiveValue {
  PrimitiveValue(PrimitiveValueEnumerations::Type type, boost::optional<std::string> string_value);

  PrimitiveValueEnumerations::Type type;

  /// For STRING; otherwise empty: the values of the other types are not kept.
  boost::optional<std::string> string_value;
};

/// The value of a constant.
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

  /// The generic type LIST for a list of values.
  std::shared_ptr<const Type> type;

  std::shared_ptr<const ConstantValue> value;
  std::string documentation;
};

/// A structure or an error.
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

  /// A field with a repeated name is kept.
  std::list<std::shared_ptr<const FieldInfo>> fields;

  MetadataMap metadata;
  std::string documentation;
};

/// One error that an operation may report.
struct ZELK_STD_BINDINGS_EXPORT ErrorInfo {
  ErrorInfo(std::string structure_name, std::string documentation);

  /// The name of the structure, of type ERROR, that describes the error.
  std::string structure_name;

  std::string documentation;
};

/// The result of an operation that succeeds.
struct ZELK_STD_BINDINGS_EXPORT OperationResultInfo {
  OperationResultInfo(std::shared_ptr<const Type> type, MetadataMap metadata,
                      std::string documentation);

  std::shared_ptr<const Type> type;
  MetadataMap metadata;
  std::string documentation;
};

/// An operation.
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

/// A service and what is defined inside it.
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

/// A package. Its structures and enumerations are those that are defined directly in it, and not
/// those of its services and structures.
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

/// A component.
struct ZELK_STD_BINDINGS_EXPORT ComponentInfo {
  ComponentInfo(std::string name,
                std::map<std::string, std::shared_ptr<const PackageInfo>> packages,
                MetadataMap metadata, std::string documentation);

  std::string name;
  std::map<std::string, std::shared_ptr<const PackageInfo>> packages;
  MetadataMap metadata;
  std::string documentation;
};

/// A component and its fingerprint.
struct ZELK_STD_BINDINGS_EXPORT ComponentData {
  ComponentData(std::shared_ptr<const ComponentInfo> info, std::string fingerprint);

  std::shared_ptr<const ComponentInfo> info;

  /// 32 lower-case hex digits that change when the file of the component does.
  std::string fingerprint;
};

namespace SourceSvc {

/// What a source is to be created with.
struct ZELK_STD_BINDINGS_EXPORT CreateSpec : SourceDescription {
  using SourceDescription::SourceDescription;
};

/// What a source was created with.
struct ZELK_STD_BINDINGS_EXPORT Info : SourceDescription {
  using SourceDescription::SourceDescription;
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
