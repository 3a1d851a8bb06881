#pragma once

#include "analysis/format.h"

namespace Zelk::Analysis::Schema {

/// The file in which projects keep their choices. It has no keys that must be there.
extern const ValueForm kProjectForm;

}  // namespace Zelk::Analysis::Schema
