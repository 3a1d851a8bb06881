#include <cstddef>
#include <utility>
#include <vector>

#include "common/json/json_member.h"
#include "metamodel/json_metadata_parser.h"

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using BuiltinType = Bindings::Metamodel::TypeEnumerations::BuiltinType;
using Category = Bindings::Metamodel::TypeEnumerations::Category;
using GenericType = Bindings::Metamodel::GenericInstantiationEnumerations::GenericType;

TypePtr ToType(
    std::shared_ptr<const Bindings::Metamodel::GenericInstantiation> generic_instantiation) {
  return std::make_shared<Bindings::Metamodel::Type>(Category::GENERIC, boost::none, nullptr,
                                                     std::move(generic_instantiation));
}

TypePtr ParseBuiltinType(BuiltinTypes& builtin_types, const JsonValue& value, Errors& errors) {
  JsonMember<BuiltinType, JsonMetadataParser::ParseBinEnum> type(value, "primitive_type", errors);
  return type.Ok() ? builtin_types.Get(type.Value()) : nullptr;
}

/// Reads one type object and all types inside it. Generic types wait in a vector until the types of
/// their elements are read: files may nest deeper than a thread's stack allows.
class NestedTypeReader {
 public:
  NestedTypeReader(BuiltinTypes& builtin_types, Errors& errors)
      : builtin_types_(builtin_types), errors_(errors) {}

  /// Returns null if the type or one inside it cannot be read.
  TypePtr Read(const JsonValue& value) { return ReadFrom(&value); }

  /// As Read, for a type object that is known to be generic.
  TypePtr ReadGeneric(const JsonValue& value) { return ReadFrom(Open(value)); }

 private:
  /// A generic type that is not complete yet.
  struct OpenType {
    const JsonValue* object;
    GenericType generic_type;
    /// For a map: null until it is read.
    TypePtr key_type;
  };

  TypePtr ReadFrom(const JsonValue* part) {
    while (part != nullptr) {
      JsonMember<Category, JsonMetadataParser::ParseCategoryEnum> category(*part, "category",
                                                                           errors_);
      if (!category.Ok()) return nullptr;
      if (category.Value() == Category::GENERIC) {
        part = Open(*part);
      } else if (category.Value() == Category::BUILTIN) {
        part = Supply(ParseBuiltinType(builtin_types_, *part, errors_));
      } else {
        part = Supply(JsonMetadataParser::ParseUserDefinedType(*part, errors_));
      }
    }
    return std::move(done_);
  }

  /// Adds a generic type to those that wait. Returns the part of it to read first, or null on
  /// failure.
  const JsonValue* Open(const JsonValue& value) {
    JsonMember<GenericType> generic_type(value, "generic_type", errors_);
    if (!generic_type.Ok()) return nullptr;
    const bool is_map = generic_type.Value() == GenericType::MAP;
    open_.push_back({&value, generic_type.Take(), nullptr});
    return Part(value, is_map ? "map_key_type" : "element_type");
  }

  /// Adds `type` to the last open type, and completes the open types that miss nothing else.
  /// Returns the part to read next; null on failure and when all types are complete.
  const JsonValue* Supply(TypePtr type) {
    if (!type) return nullptr;
    for (; !open_.empty(); open_.pop_back()) {
      auto& open = open_.back();
      if (open.generic_type != GenericType::MAP) {
        type = JsonMetadataParser::GetGenericType(open.generic_type, std::move(type));
      } else if (open.key_type) {
        type = JsonMetadataParser::GetGenericType(std::move(open.key_type), std::move(type));
      } else {
        open.key_type = std::move(type);
        return Part(*open.object, "map_value_type");
      }
    }
    done_ = std::move(type);
    return nullptr;
  }

  const JsonValue* Part(const JsonValue& object, const char* name) {
    const auto found = LookUp(object, name, JsonType::kObject, Presence::kRequired, errors_);
    return found.ok ? found.value : nullptr;
  }

  BuiltinTypes& builtin_types_;
  Errors& errors_;
  std::vector<OpenType> open_;
  TypePtr done_;
};

}  // namespace

const TypePtr& BuiltinTypes::Get(BuiltinType builtin_type) {
  auto& type = types_.at(static_cast<std::size_t>(builtin_type.Value()));
  if (!type) type = JsonMetadataParser::GetBuildinType(std::move(builtin_type));
  return type;
}

bool JsonMetadataParser::ParseType(const RegisterCallbacks& callbacks, const JsonValue& value,
                                   TypePtr& type, Errors& errors) {
  type = NestedTypeReader(callbacks.builtin_types, errors).Read(value);
  return type != nullptr;
}

TypePtr JsonMetadataParser::ParseUserDefinedType(const JsonValue& value, Errors& errors) {
  JsonMember<std::string> resource_type(value, "user_defined_type", errors);
  if (!resource_type.Ok()) return nullptr;
  JsonMember<std::string> resource_id(value, "user_defined_type_name", errors);
  if (!resource_id.Ok()) return nullptr;
  std::string type = resource_type.Take();
  // Intended(resource-type-words): exactly these two words are short forms; any other text is
  // itself a resource type.
  if (type == "Structure") {
    type = "com.orvane.zelk.structure";
  } else if (type == "Enumeration") {
    type = "com.orvane.zelk.enumeration";
  }
  return GetUserDefinedType(
      std::make_shared<Bindings::Metamodel::UserDefinedType>(std::move(type), resource_id.Take()));
}

TypePtr JsonMetadataParser::ParseGenericType(const RegisterCallbacks& callbacks,
                                             const JsonValue& value, Errors& errors) {
  return NestedTypeReader(callbacks.builtin_types, errors).ReadGeneric(value);
}

// Intended(type-aliases): a file may say PRIMITIVE for BUILTIN and EXCEPTION for ANY_ERROR.
bool JsonMetadataParser::ParseCategoryEnum(const JsonValue& value, const char* name,
                                           Category& result, Errors& errors) {
  return ParseAliasedEnum(value, name, "PRIMITIVE", Category::BUILTIN, result, errors);
}

bool JsonMetadataParser::ParseBinEnum(const JsonValue& value, const char* name, BuiltinType& result,
                                      Errors& errors) {
  return ParseAliasedEnum(value, name, "EXCEPTION", BuiltinType::ANY_ERROR, result, errors);
}

TypePtr JsonMetadataParser::GetBuildinType(BuiltinType builtin_type) {
  return std::make_shared<Bindings::Metamodel::Type>(Category::BUILTIN, std::move(builtin_type),
                                                     nullptr, nullptr);
}

TypePtr JsonMetadataParser::GetUserDefinedType(
    std::shared_ptr<const Bindings::Metamodel::UserDefinedType> user_defined_type) {
  return std::make_shared<Bindings::Metamodel::Type>(Category::USER_DEFINED, boost::none,
                                                     std::move(user_defined_type), nullptr);
}

TypePtr JsonMetadataParser::GetGenericType(GenericType generic_type, TypePtr element_type) {
  return ToType(std::make_shared<Bindings::Metamodel::GenericInstantiation>(
      std::move(generic_type), std::move(element_type), nullptr, nullptr));
}

TypePtr JsonMetadataParser::GetGenericType(TypePtr key_type, TypePtr value_type) {
  return ToType(std::make_shared<Bindings::Metamodel::GenericInstantiation>(
      GenericType::MAP, nullptr, std::move(key_type), std::move(value_type)));
}

}  // namespace Zelk::Provider::Metadata::Metamodel
