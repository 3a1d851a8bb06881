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

/// All of them, by sources. The library registers resources while it reads, so those that are named
/// within dropped elements count. It lists each resource once, and returns as its models those of
/// the last source that names it.
std::vector<ResourceUse> ResourceUses(const Model& model);

}  // namespace Zelk::Analysis
