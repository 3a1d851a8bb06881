#pragma once

#include "analysis/element_model.h"

namespace Zelk::Tool::Docs {

/// What the page shows the element in, or kNoElement: of a command the namespace of its path, in
/// whichever file that is; of what lookups find although its owner is not found, what is found in
/// the owner's place.
Analysis::ElementId ShownOwner(const Analysis::Model& model, Analysis::ElementId id);

}  // namespace Zelk::Tool::Docs
