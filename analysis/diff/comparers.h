#pragma once

#include "analysis/diff/change.h"

namespace Zelk::Analysis::Diff {

// Each adds the changes of a domain.
void CompareMetamodel(Changes& changes);
void CompareAuthentication(Changes& changes);
void CompareCli(Changes& changes);

/// Which sources answer, where what they answer is the same.
void CompareSources(Changes& changes, Domain domain);

/// What records have that lookups do not find.
void CompareShadowed(Changes& changes, Domain domain);

}  // namespace Zelk::Analysis::Diff
