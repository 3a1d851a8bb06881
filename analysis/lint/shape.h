#pragma once

#include <cstdint>
#include <vector>

#include "analysis/document.h"
#include "analysis/element_model.h"
#include "analysis/format.h"
#include "analysis/lint/finding.h"

namespace Zelk::Analysis::Lint {

/// By which form of its format the library reads each value of a file that loads.
class Shape {
 public:
  Shape(const Document& document, const Format& format);

  /// Null for a value that the library never looks at.
  const ValueForm* FormOf(NodeId node) const { return forms_[node]; }

  /// All keys that the library reads in an object, in its order. Empty for any value but an object
  /// whose keys are fixed.
  std::vector<const KeyForm*> KeysOf(NodeId object) const;

 private:
  void ReadObject(NodeId object);

  const Document& document_;
  std::vector<const ValueForm*> forms_;
};

/// The elements of one source: `begin` up to `end`.
struct ElementRange {
  ElementId begin;
  ElementId end;
};

ElementRange ElementsOf(const Model& model, std::uint32_t source);

/// A file that loads, with what its values are.
struct OpenFile {
  OpenFile(const Model& its_model, std::uint32_t its_source);

  const Model& model;
  std::uint32_t source;
  const Document& document;
  Shape shape;
  /// The element in whose text each value is; by node.
  std::vector<ElementId> around;

  Place PlaceOf(NodeId value) const;
  Place PlaceOfKey(NodeId member) const;
};

/// Whether two values have the same text but for blanks.
bool IsSameValue(const Document& left, NodeId a, const Document& right, NodeId b);

}  // namespace Zelk::Analysis::Lint
