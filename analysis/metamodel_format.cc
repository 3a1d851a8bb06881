#include <iterator>

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

// What is said of several objects alike.

constexpr char kDocumentation[] = "Text for people.";
constexpr char kFullNameText[] =
    "Full name. It begins with the full name of what contains it: the package "
    "`org.example.lending` "
    "may have the service `org.example.lending.desk`.";
constexpr char kSimpleNameText[] = "Simple name: one word, without full stops.";

constexpr KeyForm kFullNameKey{"name", Text(Style::kFullName), kFullNameText};
constexpr KeyForm kSimpleNameKey{"name", Text(Style::kSimpleName), kSimpleNameText};
constexpr KeyForm kDocumentationKey{"documentation", kText, kDocumentation};

// Annotations. Whatever is wrong within one, messages call it ElementValue.

constexpr char kElementValue[] = "ElementValue";
constexpr ValueForm kElementText = Called(kText, kElementValue);
constexpr ValueForm kAnnotationElement{
    Form::kTextOrList, ElementKind::kNone, nullptr, &kElementText, nullptr, kElementValue};
constexpr ValueForm kAnnotation =
    As(ElementKind::kAnnotation, Called(MembersOf(kAnnotationElement), kElementValue));

constexpr const char* kAnnotationNames[] = {"Resource", "Model", "ModelKey", nullptr};
constexpr const char* kAnnotationTexts[] = {
    "Its member `value`, a string or an array of strings, names resource types.",
    "On a structure: the structure describes a resource.",
    "On a field with `Resource`, in a structure with `Model`: the field is the id of the resource.",
};
constexpr Words kAnnotations{kAnnotationNames, nullptr, nullptr, kAnnotationTexts};

constexpr KeyForm kMetadata{"metadata", WithWords(MembersOf(kAnnotation), kAnnotations),
                            "Annotations by name: objects whose members are strings or arrays of "
                            "strings. Names of your own are allowed."};

// What types and structures are called.

constexpr const char* kCategoryTexts[] = {
    "A built-in type, which `primitive_type` names.",
    "A structure or an enumeration, which `user_defined_type_name` names.",
    "A list, a map, a set or an optional value of other types.",
};
static_assert(std::size(kCategoryTexts) == Category::UNKNOWN, "one text an enumerator");

constexpr const char* kBuiltinTexts[] = {
    "No value: the result of an operation that returns nothing.",
    "True or false.",
    "A whole number.",
    "A floating-point number.",
    "A text.",
    "Bytes.",
    "A text that must not be shown, such as a password.",
    "A date with a time.",
    "The id of a resource; the annotation `Resource` says of which type.",
    "A URI.",
    "An error of any structure.",
    "A structure whose fields are not known in advance.",
    "A value of any type.",
};
static_assert(std::size(kBuiltinTexts) == BuiltinType::UNKNOWN, "one text an enumerator");

constexpr const char* kGenericTexts[] = {
    "Any number of values of `element_type`, in an order.",
    "Values of `map_value_type` by keys of `map_key_type`.",
    "A value of `element_type`, or none.",
    "Values of `element_type`, each at most once.",
};
static_assert(std::size(kGenericTexts) == GenericType::UNKNOWN, "one text an enumerator");

constexpr const char* kStructureTexts[] = {"A record of fields.",
                                           "An error that operations may end with."};
static_assert(std::size(kStructureTexts) == StructureType::UNKNOWN, "one text an enumerator");

}  // namespace

constexpr Words kTypeCategories{Category::Strings::values, "PRIMITIVE", "BUILTIN", kCategoryTexts};
constexpr Words kBuiltinTypes{BuiltinType::Strings::values, "EXCEPTION", "ANY_ERROR",
                              kBuiltinTexts};
constexpr Words kGenericTypes{GenericType::Strings::values, nullptr, nullptr, kGenericTexts};
constexpr Words kStructureTypes{StructureType::Strings::values, nullptr, nullptr, kStructureTexts};

namespace {

// Types, which nest in each other to any depth.

constexpr const char* kReferredNames[] = {"Structure", "Enumeration", nullptr};
constexpr const char* kReferredTexts[] = {
    "A structure. The library returns `com.orvane.zelk.structure`.",
    "An enumeration. The library returns `com.orvane.zelk.enumeration`.",
};
constexpr Words kReferred{kReferredNames, nullptr, nullptr, kReferredTexts};

extern const ObjectForm kType;

constexpr KeyForm kBuiltinKeys[] = {
    {"primitive_type", OneOf(kBuiltinTypes), "Which built-in type it is."}};
constexpr KeyForm kUserDefinedKeys[] = {
    {"user_defined_type", WithWords(Text(Style::kWordOrFullName), kReferred),
     "What kind of type is referred to; or the full name of another resource type."},
    {"user_defined_type_name", Text(Style::kFullName), "Full name of the type."},
};
constexpr KeyForm kElementTypeKeys[] = {{"element_type", Object(kType), "Type of the values."}};
constexpr KeyForm kMapKeys[] = {
    {"map_key_type", Object(kType), "Type of the keys."},
    {"map_value_type", Object(kType), "Type of the values."},
};
constexpr KeyForm kGenericKeys[] = {
    {"generic_type", OneOf(kGenericTypes), "What is made of the other types."}};
constexpr KeyForm kTypeKeys[] = {{"category", OneOf(kTypeCategories),
                                  "The kind of type. It decides which other keys there are."}};

constexpr ObjectForm kBuiltin{nullptr, kBuiltinKeys};
constexpr ObjectForm kUserDefined{nullptr, kUserDefinedKeys};
constexpr ObjectForm kOfElements{nullptr, kElementTypeKeys};
constexpr ObjectForm kMap{nullptr, kMapKeys};

constexpr Variant kGenericVariants[] = {
    {"LIST", &kOfElements},
    {"MAP", &kMap},
    {"OPTIONAL", &kOfElements},
    {"SET", &kOfElements},
};
constexpr ObjectForm kGeneric{nullptr, kGenericKeys, "generic_type", &kGenericTypes,
                              kGenericVariants};

constexpr Variant kTypeVariants[] = {
    {"BUILTIN", &kBuiltin},
    {"USER_DEFINED", &kUserDefined},
    {"GENERIC", &kGeneric},
};
const ObjectForm kType{"type", kTypeKeys, "category", &kTypeCategories, kTypeVariants};

// Constants. Their types have neither of the aliases.

constexpr const char* kConstantCategoryTexts[] = {"One value.", "A list of values."};
static_assert(std::size(kConstantCategoryTexts) == ConstantCategory::UNKNOWN,
              "one text an enumerator");
constexpr Words kConstantCategories{ConstantCategory::Strings::values, nullptr, nullptr,
                                    kConstantCategoryTexts};
constexpr Words kConstantTypes{BuiltinType::Strings::values, nullptr, nullptr, kBuiltinTexts};

constexpr KeyForm kConstantTypeKeys[] = {
    {"category", OneOf(kConstantCategories), "Whether it is one value or a list."},
    {"type", OneOf(kConstantTypes), "Built-in type of the value, or of those in the list."},
};
constexpr ObjectForm kConstantType{"constant_type", kConstantTypeKeys};

constexpr KeyForm kConstantKeys[] = {
    kSimpleNameKey,
    kDocumentationKey,
    {"type", Object(kConstantType), "Type of the constant."},
    {"value", kAnything,
     "The value. Only that of a `PRIMITIVE` constant of type `STRING` is kept; it must be a "
     "string."},
};
constexpr ObjectForm kConstantObject{"constant", kConstantKeys};
constexpr ValueForm kConstant =
    WithRule(Each(ElementKind::kConstant, kConstantObject), Rule::kConstant);

// Definitions.

constexpr KeyForm kValueKeys[] = {
    kSimpleNameKey,
    kDocumentationKey,
    kMetadata,
};
constexpr ObjectForm kValueObject{"value", kValueKeys};
constexpr ValueForm kValue = Each(ElementKind::kValue, kValueObject);

constexpr KeyForm kEnumerationKeys[] = {
    kFullNameKey,
    kDocumentationKey,
    kMetadata,
    {"values", ListOf(kValue), "The values, each with a name."},
};
constexpr ObjectForm kEnumerationObject{"enumeration", kEnumerationKeys};
constexpr ValueForm kEnumeration = Each(ElementKind::kEnumeration, kEnumerationObject);

constexpr KeyForm kFieldKeys[] = {
    kSimpleNameKey,
    kDocumentationKey,
    kMetadata,
    {"type", Object(kType), "Type of the values that it takes."},
};
constexpr ObjectForm kFieldObject{"field", kFieldKeys};
constexpr ValueForm kField = Each(ElementKind::kField, kFieldObject);
constexpr ValueForm kParameter = Each(ElementKind::kParameter, kFieldObject);

constexpr KeyForm kStructureKeys[] = {
    kFullNameKey,
    {"type", OneOf(kStructureTypes), "What the structure is for."},
    kDocumentationKey,
    kMetadata,
    {"enumerations", ListOf(kEnumeration), "Enumerations that are defined in it."},
    {"constants", ListOf(kConstant), "Constants that are defined in it."},
    {"fields", ListOf(kField), "The fields."},
};
constexpr ObjectForm kStructureObject{"structure", kStructureKeys};
constexpr ValueForm kStructure = Each(ElementKind::kStructure, kStructureObject);

constexpr KeyForm kResultKeys[] = {
    kDocumentationKey,
    kMetadata,
    {"type", Object(kType), "Type of the result; `VOID` if nothing is returned."},
};
constexpr ObjectForm kResult{"result", kResultKeys};

constexpr KeyForm kErrorKeys[] = {
    {"user_defined_type_name", Text(Style::kFullName),
     "Full name of a structure of type `ERROR`, in this file or another."},
    kDocumentationKey,
};
constexpr ObjectForm kErrorObject{"error", kErrorKeys};
constexpr ValueForm kError = Each(ElementKind::kError, kErrorObject);

constexpr KeyForm kOperationKeys[] = {
    kSimpleNameKey,
    kDocumentationKey,
    kMetadata,
    {"params", ListOf(kParameter), "The parameters, in the order of a call."},
    {"result", As(ElementKind::kResult, Object(kResult)), "What the operation returns."},
    {"errors", ListOf(kError), "The errors that it may end with."},
};
constexpr ObjectForm kOperationObject{"operation", kOperationKeys};
constexpr ValueForm kOperation = Each(ElementKind::kOperation, kOperationObject);

constexpr KeyForm kServiceKeys[] = {
    kFullNameKey,
    kDocumentationKey,
    kMetadata,
    {"enumerations", ListOf(kEnumeration), "Enumerations that are defined in it."},
    {"structures", ListOf(kStructure), "Structures that are defined in it."},
    {"constants", ListOf(kConstant), "Constants that are defined in it."},
    {"operations", ListOf(kOperation), "The operations."},
};
constexpr ObjectForm kServiceObject{"service", kServiceKeys};
constexpr ValueForm kService = Each(ElementKind::kService, kServiceObject);

constexpr KeyForm kPackageKeys[] = {
    kFullNameKey,
    kDocumentationKey,
    kMetadata,
    {"enumerations", ListOf(kEnumeration), "Enumerations that are defined in it."},
    {"structures", ListOf(kStructure), "Structures that are defined in it."},
    {"services", ListOf(kService), "The services."},
};
constexpr ObjectForm kPackageObject{"package", kPackageKeys};
constexpr ValueForm kPackage = Each(ElementKind::kPackage, kPackageObject);

constexpr KeyForm kComponentKeys[] = {
    kFullNameKey,
    kDocumentationKey,
    kMetadata,
    {"packages", ListOf(kPackage), "The packages."},
};
constexpr ObjectForm kComponent{"component", kComponentKeys};

constexpr KeyForm kMetamodelKeys[] = {
    {"component", As(ElementKind::kComponent, Object(kComponent)),
     "The component that the file describes."},
};
constexpr ObjectForm kMetamodel{"metamodel", kMetamodelKeys};

constexpr KeyForm kRootKeys[] = {
    {"metamodel", Object(kMetamodel), "Marks a Metamodel file: the interface of a component."}};
constexpr ObjectForm kRoot{"document", kRootKeys};

}  // namespace

const Format kMetamodelFormat{Domain::kMetamodel, "metamodel", "Metamodel file",
                              Each(ElementKind::kNone, kRoot)};

}  // namespace Zelk::Analysis
