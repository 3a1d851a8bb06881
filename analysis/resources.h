#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "analysis/element_model.h"

namespace Zelk::Analysis {

/// A place where a Metamodel file names a resource, or declares a structure to be a model of one.
struct ResourceUse {
  std::string_view resource;
  /// The position of the source in the model.
  std::uint32_t source;
  /// The annotation that names it, and the text in which it does.
  ElementId annotation;
  NodeId node;
  /// The structure that is a model of it; kNoElement where it is only named.
  ElementId model;
};

/// Marks a field as a key, so that its resource is one that the structure is a model of.
inline constexpr char kModelKey[] = "ModelKey";

/// The last "value" of an annotation, as in the library; kNoNode if it has none.
NodeId ResourceValue(const Model& model, ElementId annotation);

/// The annotation of that name that the element keeps, or kNoElement.
ElementId AnnotationOf(const Model& model, ElementId element, std::string_view name);

/// All of them, by sources. The library registers resources while it reads, so those that are named
/// within dropped elements count. It lists each resource once, and returns as its models those of
/// the last source that names it.
std::vector<ResourceUse> ResourceUses(const Model& model);

}  // namespace Zelk::Analysis
