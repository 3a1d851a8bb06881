#pragma once

#include "analysis/diff/change.h"

namespace Zelk::Analysis::Diff {

// Each adds the changes of a domain.
void CompareMetamodel(Changes& changes);

}  // namespace Zelk::Analysis::Diff
