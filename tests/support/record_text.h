#pragma once

#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/records.h>

// The parts of a record dump that fit in one line.

namespace Zelk::Testing {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// In quotes; a byte that is not printable ASCII is written as \xNN.
inline std::string Quoted(const std::string& text) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte >= 0x20 && byte < 0x7f && byte != '"' && byte != '\\') {
      quoted += character;
    } else {
      quoted += {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return quoted + '"';
}

inline std::string Quoted(const boost::optional<std::string>& text) {
  return text ? Quoted(*text) : "none";
}

inline std::string Quoted(const boost::optional<std::list<std::string>>& texts) {
  if (!texts) return "none";
  std::string quoted;
  for (const auto& text : *texts) quoted += (quoted.empty() ? "" : ", ") + Quoted(text);
  return "[" + quoted + "]";
}

/// The enumerator, or UNKNOWN with the text that matched none.
template <typename E>
std::string EnumText(const E& value) {
  return value.Value() == E::UNKNOWN ? "UNKNOWN " + Quoted(value.Text())
                                     : E::Strings::values[value.Value()];
}

/// One annotation element: the payload that its type selects. A "!" when others are set too.
inline std::string ElementText(const Bindings::Metamodel::ElementValue& value) {
  using ElementType = Bindings::Metamodel::ElementValueEnumerations::Type;
  const int payloads = value.string_value.has_value() + value.list_value.has_value() +
                       value.structure_id.has_value() + value.structure_ids.has_value();
  const std::string mark = payloads > 1 ? "!" : "";
  switch (value.type.Value()) {
    case ElementType::STRING:
      return mark + Quoted(value.string_value);
    case ElementType::STRING_LIST:
      return mark + Quoted(value.list_value);
    case ElementType::STRUCTURE_REFERENCE:
      return mark + "structure " + Quoted(value.structure_id);
    case ElementType::STRUCTURE_REFERENCE_LIST:
      return mark + "structures " + Quoted(value.structure_ids);
    default:
      return mark + EnumText(value.type);
  }
}

/// A type without what it is made of. A "!" when a member is set that its category does not select.
inline std::string OuterTypeText(const Bindings::Metamodel::Type& type) {
  using Category = Bindings::Metamodel::TypeEnumerations::Category;
  const int members = type.builtin_type.has_value() + (type.user_defined_type != nullptr) +
                      (type.generic_instantiation != nullptr);
  const std::string mark = members > 1 ? "!" : "";
  if (type.category == Category::BUILTIN && type.builtin_type) {
    return mark + EnumText(*type.builtin_type);
  }
  if (type.category == Category::USER_DEFINED && type.user_defined_type) {
    return mark + Quoted(type.user_defined_type->resource_type) + ":" +
           Quoted(type.user_defined_type->resource_id);
  }
  if (type.category == Category::GENERIC && type.generic_instantiation) {
    return mark + EnumText(type.generic_instantiation->generic_type);
  }
  return mark + EnumText(type.category) + " of nothing";
}

/// A type such as MAP<STRING, LIST<"foo":"bar">>, nested to any depth.
inline std::string TypeText(const std::shared_ptr<const Bindings::Metamodel::Type>& root) {
  struct Piece {
    std::string text;
    std::shared_ptr<const Bindings::Metamodel::Type> type;
  };

  std::string text;
  std::vector<Piece> pending{{"", root}};
  while (!pending.empty()) {
    const Piece piece = std::move(pending.back());
    pending.pop_back();
    text += piece.text;
    if (!piece.type) continue;
    text += OuterTypeText(*piece.type);
    if (const auto generic = piece.type->generic_instantiation) {
      const bool is_map = generic->map_key_type || generic->map_value_type;
      pending.push_back({">", nullptr});
      if (is_map) pending.push_back({", ", generic->map_value_type});
      if (is_map) pending.push_back({"", generic->map_key_type});
      if (generic->element_type) pending.push_back({is_map ? "!" : "", generic->element_type});
      pending.push_back({"<", nullptr});
    }
  }
  return text;
}

}  // namespace Zelk::Testing
