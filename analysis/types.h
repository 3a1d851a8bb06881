#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/document.h"
#include "analysis/element.h"

namespace Zelk::Analysis {

enum class TypeForm : std::uint8_t { kBuiltin, kUserDefined, kGeneric };

/// One level of a type of a Metamodel file.
struct TypeLevel {
  TypeForm form;
  /// The built-in type or the generic type, as the library's enumerators are spelt.
  std::string_view word;
  /// The name of a user-defined type, and the text that says what the name is to be.
  NodeId name = kNoNode;
  NodeId kind = kNoNode;
  /// What the name is to be: a structure or an enumeration; kNone if the file says something else.
  ElementKind wanted = ElementKind::kNone;
  /// What a generic type is made of: the elements, or the values of a map.
  NodeId element = kNoNode;
  /// The keys of a map.
  NodeId key = kNoNode;
  /// How many levels are around it; set by ForEachLevel().
  std::uint32_t depth = 0;
};

/// Reads the object of a type in a source that loads.
TypeLevel ReadType(const Document& document, NodeId type);

/// Calls `take(level)` with every level of the type, outermost first. Types nest to any depth, so
/// nothing recurses.
template <typename Take>
void ForEachLevel(const Document& document, NodeId type, const Take& take) {
  struct Pending {
    NodeId type;
    std::uint32_t depth;
  };

  std::vector<Pending> keys;
  for (std::uint32_t depth = 0; type != kNoNode;) {
    TypeLevel level = ReadType(document, type);
    level.depth = depth++;
    take(level);
    if (level.key != kNoNode) keys.push_back({level.key, depth});
    type = level.element;
    if (type == kNoNode && !keys.empty()) {
      type = keys.back().type;
      depth = keys.back().depth;
      keys.pop_back();
    }
  }
}

/// How many values a type takes. A set counts as a list.
enum class Arity : std::uint8_t { kOne, kOptional, kList, kOptionalList, kListOptional, kOther };

/// What is left of a type without the generics that `arity` stands for.
struct TypeShape {
  Arity arity = Arity::kOne;
  NodeId inner = kNoNode;
};

TypeShape ShapeOf(const Document& document, NodeId type);

}  // namespace Zelk::Analysis
