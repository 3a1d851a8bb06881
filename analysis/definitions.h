#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/element_model.h"
#include "analysis/types.h"

namespace Zelk::Analysis {

/// What a parameter, a field or a result consists of.
struct Content {
  TypeShape shape;
  /// The structure or enumeration that `shape.inner` names; kNoElement if it names none.
  ElementId definition = kNoElement;
};

/// How far the dotted field name of an option leads.
struct FieldPath {
  enum End : std::uint8_t {
    kComplete,
    /// The operation has no such parameter, or the structure no such field.
    kMissing,
    /// The last one found is not a structure.
    kNoStructure,
    /// What the last one found consists of is not loaded, or is known only when it is called.
    kUnknown,
  };

  /// The parameter, and the fields in it.
  std::vector<ElementId> found;
  End end = kComplete;
  /// The first part that was not found; empty if all were found.
  std::string_view part;
};

/// Looks up what Metamodel files define, as clients do. The model must outlive it.
class Definitions {
 public:
  explicit Definitions(const Model& metamodel);

  /// The first operation of the service, parameter of the operation, or field of the structure with
  /// this name, or kNoElement.
  ElementId Part(ElementId owner, ElementKind kind, std::string_view name) const;

  /// The structure or enumeration of that name, `wanted` first; or kNoElement.
  ElementId Definition(ElementKind wanted, std::string_view name) const;

  /// For parameters, fields and results.
  const Content& ContentOf(ElementId id) const { return contents_[id]; }

  FieldPath Follow(ElementId operation, std::string_view path) const;

  /// Whether a component, package or service that is loaded has this name, or is the first part of
  /// it. Any other name belongs to something that is not loaded.
  bool IsLoaded(std::string_view name) const;

 private:
  void IndexParts();
  void IndexRoots();
  void ReadContents();
  FieldPath::End EndAt(ElementId id) const;

  const Model& model_;
  /// By owner, kind and name; the first of equal ones first.
  std::vector<ElementId> parts_;
  std::vector<std::string_view> roots_;
  std::vector<Content> contents_;
};

}  // namespace Zelk::Analysis
