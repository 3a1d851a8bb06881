#include <utility>

#include <com/orvane/zelk/metadata/metamodel/records.h>

// A parameter has the suffix _arg if it would hide the member of the same name.

namespace Com::Orvane::Zelk::Metadata::Metamodel {

ElementValue::ElementValue(ElementValueEnumerations::Type type_arg,
                           boost::optional<std::string> string_value_arg,
                           boost::optional<std::list<std::string>> list_value_arg,
                           boost::optional<std::string> structure_id_arg,
                           boost::optional<std::list<std::string>> structure_ids_arg)
    : type(std::move(type_arg)),
      string_value(std::move(string_value_arg)),
      list_value(std::move(list_value_arg)),
      structure_id(std::move(structure_id_arg)),
      structure_ids(std::move(structure_ids_arg)) {}

ElementMap::ElementMap(std::map<std::string, std::shared_ptr<const ElementValue>> elements_arg)
    : elements(std::move(elements_arg)) {}

UserDefinedType::UserDefinedType(std::string resource_type_arg, std::string resource_id_arg)
    : resource_type(std::move(resource_type_arg)), resource_id(std::move(resource_id_arg)) {}

Type::Type(TypeEnumerations::Category category_arg,
           boost::optional<TypeEnumerations::BuiltinType> builtin_type_arg,
           std::shared_ptr<const UserDefinedType> user_defined_type_arg,
           std::shared_ptr<const GenericInstantiation> generic_instantiation_arg)
    : category(std::move(category_arg)),
      builtin_type(std::move(builtin_type_arg)),
      user_defined_type(std::move(user_defined_type_arg)),
      generic_instantiation(std::move(generic_instantiation_arg)) {}

FieldInfo::FieldInfo(std::string name_arg, std::shared_ptr<const Type> type_arg,
                     MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      type(std::move(type_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

EnumerationValueInfo::EnumerationValueInfo(std::string value_arg, MetadataMap metadata_arg,
                                           std::string documentation_arg)
    : value(std::move(value_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

EnumerationInfo::EnumerationInfo(std::string name_arg,
                                 std::list<std::shared_ptr<const EnumerationValueInfo>> values_arg,
                                 MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      values(std::move(values_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

PrimitiveValue::PrimitiveValue(PrimitiveValueEnumerations::Type type_arg,
                               boost::optional<std::string> string_value_arg)
    : type(std::move(type_arg)), string_value(std::move(string_value_arg)) {}

ConstantValue::ConstantValue(ConstantValueEnumerations::Category category_arg,
                             std::shared_ptr<const PrimitiveValue> primitive_value_arg)
    : category(std::move(category_arg)), primitive_value(std::move(primitive_value_arg)) {}

ConstantInfo::ConstantInfo(std::shared_ptr<const Type> type_arg,
                           std::shared_ptr<const ConstantValue> value_arg,
                           std::string documentation_arg)
    : type(std::move(type_arg)),
      value(std::move(value_arg)),
      documentation(std::move(documentation_arg)) {}

StructureInfo::StructureInfo(
    std::string name_arg, StructureInfoEnumerations::Type type_arg,
    std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations_arg,
    std::map<std::string, std::shared_ptr<const ConstantInfo>> constants_arg,
    std::list<std::shared_ptr<const FieldInfo>> fields_arg, MetadataMap metadata_arg,
    std::string documentation_arg)
    : name(std::move(name_arg)),
      type(std::move(type_arg)),
      enumerations(std::move(enumerations_arg)),
      constants(std::move(constants_arg)),
      fields(std::move(fields_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

ErrorInfo::ErrorInfo(std::string structure_name_arg, std::string documentation_arg)
    : structure_name(std::move(structure_name_arg)), documentation(std::move(documentation_arg)) {}

OperationResultInfo::OperationResultInfo(std::shared_ptr<const Type> type_arg,
                                         MetadataMap metadata_arg, std::string documentation_arg)
    : type(std::move(type_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

OperationInfo::OperationInfo(std::string name_arg,
                             std::list<std::shared_ptr<const FieldInfo>> params_arg,
                             std::shared_ptr<const OperationResultInfo> output_arg,
                             std::list<std::shared_ptr<const ErrorInfo>> errors_arg,
                             MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      params(std::move(params_arg)),
      output(std::move(output_arg)),
      errors(std::move(errors_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

ServiceInfo::ServiceInfo(
    std::string name_arg,
    std::map<std::string, std::shared_ptr<const OperationInfo>> operations_arg,
    std::map<std::string, std::shared_ptr<const StructureInfo>> structures_arg,
    std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations_arg,
    std::map<std::string, std::shared_ptr<const ConstantInfo>> constants_arg,
    MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      operations(std::move(operations_arg)),
      structures(std::move(structures_arg)),
      enumerations(std::move(enumerations_arg)),
      constants(std::move(constants_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

PackageInfo::PackageInfo(
    std::string name_arg,
    std::map<std::string, std::shared_ptr<const StructureInfo>> structures_arg,
    std::map<std::string, std::shared_ptr<const EnumerationInfo>> enumerations_arg,
    std::map<std::string, std::shared_ptr<const ServiceInfo>> services_arg,
    MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      structures(std::move(structures_arg)),
      enumerations(std::move(enumerations_arg)),
      services(std::move(services_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

ComponentInfo::ComponentInfo(std::string name_arg,
                             std::map<std::string, std::shared_ptr<const PackageInfo>> packages_arg,
                             MetadataMap metadata_arg, std::string documentation_arg)
    : name(std::move(name_arg)),
      packages(std::move(packages_arg)),
      metadata(std::move(metadata_arg)),
      documentation(std::move(documentation_arg)) {}

ComponentData::ComponentData(std::shared_ptr<const ComponentInfo> info_arg,
                             std::string fingerprint_arg)
    : info(std::move(info_arg)), fingerprint(std::move(fingerprint_arg)) {}

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
