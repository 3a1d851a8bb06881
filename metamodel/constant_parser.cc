#include "common/json/json_member.h"
#include "metamodel/json_metadata_parser.h"

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;
using ConstantCategory = Bindings::Metamodel::ConstantValueEnumerations::Category;
using GenericType = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;
using PrimitiveType = Bindings::Metamodel::PrimitiveValueEnumerations::Type;

/// Returns the type of the value of a constant, unknown if constants cannot have a value of the
/// built-in type.
PrimitiveType ToPrimitiveType(const BuiltinType& builtin_type) {
  switch (builtin_type.Value()) {
    case BuiltinType::BOOLEAN:
      return PrimitiveType::BOOLEAN;
    case BuiltinType::LONG:
      return PrimitiveType::LONG;
    case BuiltinType::DOUBLE:
      return PrimitiveType::DOUBLE;
    case BuiltinType::STRING:
      return PrimitiveType::STRING;
    default:
      return PrimitiveType::UNKNOWN;
  }
}

}  // namespace

Named<Bindings::Metamodel::ConstantInfo> JsonMetadataParser::ParseConstant(
    const RegisterCallbacks& callbacks, const JsonValue& value, Errors& errors) {
  constexpr char kValue[] = "value";
  JsonMember<std::string> name(value, "name", errors);
  if (!name.Ok()) return {};
  JsonMember<std::string> documentation(value, "documentation", errors);
  if (!documentation.Ok()) return {};
  JsonObjectMember<ConstantType> type(value, "type", WithCallbacks(callbacks, ParseConstantType),
                                      errors);
  if (!type.Ok()) return {};
  const JsonValue* constant = FindMember(value, kValue, errors);
  if (constant == nullptr) return {};

  const auto& [category, constant_type] = type.Value();
  // Intended(string-constants-only): a constant whose value cannot be read is kept without a value;
  // only string constants have one.
  auto held = category == ConstantCategory::PRIMITIVE
                  ? ParseConstantPrimitiveValue(*constant, kValue, errors,
                                                ToPrimitiveType(*constant_type->builtin_type))
                  : std::make_shared<const Bindings::Metamodel::ConstantValue>(category, nullptr);
  return {name.Take(), std::make_shared<Bindings::Metamodel::ConstantInfo>(
                           constant_type, std::move(held), documentation.Take())};
}

bool JsonMetadataParser::ParseConstantType(const RegisterCallbacks& callbacks,
                                           const JsonValue& value, ConstantType& result,
                                           Errors& errors) {
  JsonMember<ConstantCategory> category(value, "category", errors);
  if (!category.Ok()) return false;
  // Intended(type-aliases): not accepted for constants.
  JsonMember<BuiltinType> type(value, "type", errors);
  if (!type.Ok()) return false;
  TypePtr builtin = callbacks.builtin_types.Get(type.Value());
  result = {category.Value(), category.Value() == ConstantCategory::LIST
                                  ? GetGenericType(GenericType::LIST, std::move(builtin))
                                  : std::move(builtin)};
  return true;
}

std::shared_ptr<const Bindings::Metamodel::ConstantValue>
JsonMetadataParser::ParseConstantPrimitiveValue(const JsonValue& value, const char* name,
                                                Errors& errors,
                                                const PrimitiveType& primitive_type) {
  return std::make_shared<const Bindings::Metamodel::ConstantValue>(
      ConstantCategory::PRIMITIVE, ParsePrimitiveValue(value, name, errors, primitive_type));
}

std::shared_ptr<const Bindings::Metamodel::PrimitiveValue> JsonMetadataParser::ParsePrimitiveValue(
    const JsonValue& value, const char* name, Errors& errors, const PrimitiveType& primitive_type) {
  if (primitive_type != PrimitiveType::STRING) return nullptr;
  std::string text;
  if (!JsonParseString<ParseString>(value, name, text, errors)) return nullptr;
  return std::make_shared<Bindings::Metamodel::PrimitiveValue>(primitive_type, std::move(text));
}

}  // namespace Zelk::Provider::Metadata::Metamodel
