#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

#include "analysis/format_parts.h"

namespace Zelk::Analysis {
namespace {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using Category = Bindings::Metamodel::TypeEnumerations::Category;
using ConstantCategory = Bindings::Metamodel::ConstantValueEnumerations::Category;
using GenericType = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
using StructureType = Bindings::Metamodel::StructureInfoEnumerations::Type;
using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;

// Annotations. Whatever is wrong within one, messages call it ElementValue.

constexpr char kElementValue[] = "ElementValue";
constexpr ValueForm kElementText = Called(kText, kElementValue);
constexpr ValueForm kAnnotationElement{
    Form::kTextOrList, ElementKind::kNone, nullptr, &kElementText, nullptr, kElementValue};
constexpr ValueForm kAnnotation =
    As(ElementKind::kAnnotation, Called(MembersOf(kAnnotationElement), kElementValue));
constexpr KeyForm kMetadata{"metadata", MembersOf(kAnnotation)};

}  // namespace

// Types, which nest in each other to any depth.

constexpr Words kTypeCategories{Category::Strings::values, "PRIMITIVE", "BUILTIN"};
constexpr Words kBuiltinTypes{BuiltinType::Strings::values, "EXCEPTION", "ANY_ERROR"};
constexpr Words kGenericTypes{GenericType::Strings::values, nullptr, nullptr};
constexpr Words kStructureTypes{StructureType::Strings::values, nullptr, nullptr};

namespace {

extern const ObjectForm kType;

constexpr KeyForm kBuiltinKeys[] = {{"primitive_type", OneOf(kBuiltinTypes)}};
constexpr KeyForm kUserDefinedKeys[] = {
    {"user_defined_type", kText},
    {"user_defined_type_name", kText},
};
constexpr KeyForm kElementTypeKeys[] = {{"element_type", Object(kType)}};
constexpr KeyForm kMapKeys[] = {
    {"map_key_type", Object(kType)},
    {"map_value_type", Object(kType)},
};
constexpr KeyForm kGenericKeys[] = {{"generic_type", OneOf(kGenericTypes)}};
constexpr KeyForm kTypeKeys[] = {{"category", OneOf(kTypeCategories)}};

constexpr ObjectForm kBuiltin{kBuiltinKeys};
constexpr ObjectForm kUserDefined{kUserDefinedKeys};
constexpr ObjectForm kOfElements{kElementTypeKeys};
constexpr ObjectForm kMap{kMapKeys};

constexpr Variant kGenericVariants[] = {
    {"LIST", &kOfElements},
    {"MAP", &kMap},
    {"OPTIONAL", &kOfElements},
    {"SET", &kOfElements},
};
constexpr ObjectForm kGeneric{kGenericKeys, "generic_type", &kGenericTypes, kGenericVariants};

constexpr Variant kTypeVariants[] = {
    {"BUILTIN", &kBuiltin},
    {"USER_DEFINED", &kUserDefined},
    {"GENERIC", &kGeneric},
};
const ObjectForm kType{kTypeKeys, "category", &kTypeCategories, kTypeVariants};

// Constants. Their types have neither of the aliases.

constexpr Words kConstantCategories{ConstantCategory::Strings::values, nullptr, nullptr};
constexpr Words kConstantTypes{BuiltinType::Strings::values, nullptr, nullptr};

constexpr KeyForm kConstantTypeKeys[] = {
    {"category", OneOf(kConstantCategories)},
    {"type", OneOf(kConstantTypes)},
};
constexpr ObjectForm kConstantType{kConstantTypeKeys};

constexpr KeyForm kConstantKeys[] = {
    {"name", kText},
    {"documentation", kText},
    {"type", Object(kConstantType)},
    {"value", kAnything},
};
constexpr ObjectForm kConstantObject{kConstantKeys};
constexpr ValueForm kConstant =
    WithRule(Each(ElementKind::kConstant, kConstantObject), Rule::kConstant);

// Definitions.

constexpr KeyForm kValueKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
};
constexpr ObjectForm kValueObject{kValueKeys};
constexpr ValueForm kValue = Each(ElementKind::kValue, kValueObject);

constexpr KeyForm kEnumerationKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"values", ListOf(kValue)},
};
constexpr ObjectForm kEnumerationObject{kEnumerationKeys};
constexpr ValueForm kEnumeration = Each(ElementKind::kEnumeration, kEnumerationObject);

constexpr KeyForm kFieldKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"type", Object(kType)},
};
constexpr ObjectForm kFieldObject{kFieldKeys};
constexpr ValueForm kField = Each(ElementKind::kField, kFieldObject);
constexpr ValueForm kParameter = Each(ElementKind::kParameter, kFieldObject);

constexpr KeyForm kStructureKeys[] = {
    {"name", kText},
    {"type", OneOf(kStructureTypes)},
    {"documentation", kText},
    kMetadata,
    {"enumerations", ListOf(kEnumeration)},
    {"constants", ListOf(kConstant)},
    {"fields", ListOf(kField)},
};
constexpr ObjectForm kStructureObject{kStructureKeys};
constexpr ValueForm kStructure = Each(ElementKind::kStructure, kStructureObject);

constexpr KeyForm kResultKeys[] = {
    {"documentation", kText},
    kMetadata,
    {"type", Object(kType)},
};
constexpr ObjectForm kResult{kResultKeys};

constexpr KeyForm kErrorKeys[] = {
    {"user_defined_type_name", kText},
    {"documentation", kText},
};
constexpr ObjectForm kErrorObject{kErrorKeys};
constexpr ValueForm kError = Each(ElementKind::kError, kErrorObject);

constexpr KeyForm kOperationKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"params", ListOf(kParameter)},
    {"result", As(ElementKind::kResult, Object(kResult))},
    {"errors", ListOf(kError)},
};
constexpr ObjectForm kOperationObject{kOperationKeys};
constexpr ValueForm kOperation = Each(ElementKind::kOperation, kOperationObject);

constexpr KeyForm kServiceKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"enumerations", ListOf(kEnumeration)},
    {"structures", ListOf(kStructure)},
    {"constants", ListOf(kConstant)},
    {"operations", ListOf(kOperation)},
};
constexpr ObjectForm kServiceObject{kServiceKeys};
constexpr ValueForm kService = Each(ElementKind::kService, kServiceObject);

constexpr KeyForm kPackageKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"enumerations", ListOf(kEnumeration)},
    {"structures", ListOf(kStructure)},
    {"services", ListOf(kService)},
};
constexpr ObjectForm kPackageObject{kPackageKeys};
constexpr ValueForm kPackage = Each(ElementKind::kPackage, kPackageObject);

constexpr KeyForm kComponentKeys[] = {
    {"name", kText},
    {"documentation", kText},
    kMetadata,
    {"packages", ListOf(kPackage)},
};
constexpr ObjectForm kComponent{kComponentKeys};

constexpr KeyForm kMetamodelKeys[] = {
    {"component", As(ElementKind::kComponent, Object(kComponent))},
};
constexpr ObjectForm kMetamodel{kMetamodelKeys};

constexpr KeyForm kRootKeys[] = {{"metamodel", Object(kMetamodel)}};
constexpr ObjectForm kRoot{kRootKeys};

}  // namespace

const Format kMetamodelFormat{Domain::kMetamodel, "metamodel", Each(ElementKind::kNone, kRoot)};

}  // namespace Zelk::Analysis
