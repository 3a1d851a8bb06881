#pragma once

#include <vector>

#include "host/host.h"

namespace Zelk::Tool {

/// What the sources of one domain hold together: a thing that several hold comes once, as the first
/// of them describes it, with what is inside of it in any. Parts come from the first only, since
/// the others are never shown. The sources must be in the order in which the services walk them.
/// Takes the entries away from the outlines.
Outline Merged(const std::vector<Outline*>& outlines);

/// The merged outline of every domain that has sources.
struct DomainOutline {
  const DomainRow* row;
  Outline outline;
};

std::vector<DomainOutline> MergedByDomain(std::vector<SourceOutline> sources);

}  // namespace Zelk::Tool
