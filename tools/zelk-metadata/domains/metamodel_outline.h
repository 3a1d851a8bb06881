#pragma once

#include <com/orvane/zelk/metadata/metamodel/records.h>

#include "domains/outline.h"

namespace Zelk::Tool {

/// The component with everything in it, each kind of thing in the order of its key.
void WriteOutline(OutlineWriter& outline,
                  const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentInfo& component);

}  // namespace Zelk::Tool
