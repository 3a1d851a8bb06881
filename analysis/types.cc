#include "analysis/types.h"

#include "analysis/format.h"

namespace Zelk::Analysis {
namespace {

ElementKind KindOf(std::string_view resource_type) {
  if (resource_type == "Structure" || resource_type == "com.orvane.zelk.structure") {
    return ElementKind::kStructure;
  }
  if (resource_type == "Enumeration" || resource_type == "com.orvane.zelk.enumeration") {
    return ElementKind::kEnumeration;
  }
  return ElementKind::kNone;
}

/// The arity of a generic type whose elements have the arity; kOther if no word says so.
Arity Within(Arity outer, std::string_view generic) {
  const bool is_list = generic == "LIST" || generic == "SET";
  if (generic == "OPTIONAL") {
    if (outer == Arity::kOne || outer == Arity::kOptional) return Arity::kOptional;
    if (outer == Arity::kList || outer == Arity::kListOptional) return Arity::kListOptional;
  } else if (is_list) {
    if (outer == Arity::kOne) return Arity::kList;
    if (outer == Arity::kOptional) return Arity::kOptionalList;
  }
  return Arity::kOther;
}

}  // namespace

TypeLevel ReadType(const Document& document, NodeId type) {
  const auto text = [&](const char* key) { return document.String(document.Find(type, key)); };
  TypeLevel level{};
  const std::string_view category = kTypeCategories.Find(text("category"));
  if (category == "BUILTIN") {
    level.form = TypeForm::kBuiltin;
    level.word = kBuiltinTypes.Find(text("primitive_type"));
  } else if (category == "USER_DEFINED") {
    level.form = TypeForm::kUserDefined;
    level.name = document.Find(type, "user_defined_type_name");
    level.kind = document.Find(type, "user_defined_type");
    level.wanted = KindOf(document.String(level.kind));
  } else {
    level.form = TypeForm::kGeneric;
    level.word = kGenericTypes.Find(text("generic_type"));
    const bool is_map = level.word == "MAP";
    level.element = document.Find(type, is_map ? "map_value_type" : "element_type");
    if (is_map) level.key = document.Find(type, "map_key_type");
  }
  return level;
}

TypeShape ShapeOf(const Document& document, NodeId type) {
  TypeShape shape{Arity::kOne, type};
  while (shape.arity != Arity::kOther) {
    const TypeLevel level = ReadType(document, shape.inner);
    if (level.form != TypeForm::kGeneric) break;
    shape.arity = Within(shape.arity, level.word);
    if (shape.arity != Arity::kOther) shape.inner = level.element;
  }
  return shape;
}

}  // namespace Zelk::Analysis
