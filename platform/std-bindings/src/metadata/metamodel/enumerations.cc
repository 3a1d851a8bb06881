#include <iterator>

#include <com/orvane/zelk/metadata/metamodel/enumerations.h>

namespace Com::Orvane::Zelk::Metadata::Metamodel {

namespace TypeEnumerations {

const char* const Category::Strings::values[] = {"BUILTIN", "USER_DEFINED", "GENERIC", nullptr};
static_assert(std::size(Category::Strings::values) == Category::UNKNOWN + 1,
              "one text an enumerator");

const char* const BuiltinType::Strings::values[] = {
    "VOID",   "BOOLEAN",   "LONG", "DOUBLE", "STRING",    "BINARY",
    "SECRET", "DATE_TIME", "ID",   "URI",    "ANY_ERROR", "DYNAMIC_STRUCTURE",
    "OPAQUE", nullptr};
static_assert(std::size(BuiltinType::Strings::values) == BuiltinType::UNKNOWN + 1,
              "one text an enumerator");

}  // namespace TypeEnumerations

namespace GenericInstantiationEnumerations {

const char* const GenericType::Strings::values[] = {"LIST", "MAP", "OPTIONAL", "SET", nullptr};
static_assert(std::size(GenericType::Strings::values) == GenericType::UNKNOWN + 1,
              "one text an enumerator");

}  // namespace GenericInstantiationEnumerations

namespace StructureInfoEnumerations {

const char* const Type::Strings::values[] = {"STRUCTURE", "ERROR", nullptr};
static_assert(std::size(Type::Strings::values) == Type::UNKNOWN + 1, "one text an enumerator");

}  // namespace StructureInfoEnumerations

namespace ConstantValueEnumerations {

const char* const Category::Strings::values[] = {"PRIMITIVE", "LIST", nullptr};
static_assert(std::size(Category::Strings::values) == Category::UNKNOWN + 1,
              "one text an enumerator");

}  // namespace ConstantValueEnumerations

namespace PrimitiveValueEnumerations {

const char* const Type::Strings::values[] = {"BOOLEAN", "DOUBLE", "LONG", "STRING", nullptr};
static_assert(std::size(Type::Strings::values) == Type::UNKNOWN + 1, "one text an enumerator");

}  // namespace PrimitiveValueEnumerations

namespace ElementValueEnumerations {

const char* const Type::Strings::values[] = {
    "LONG", "STRING", "STRING_LIST", "STRUCTURE_REFERENCE", "STRUCTURE_REFERENCE_LIST", nullptr};
static_assert(std::size(Type::Strings::values) == Type::UNKNOWN + 1, "one text an enumerator");

}  // namespace ElementValueEnumerations

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
