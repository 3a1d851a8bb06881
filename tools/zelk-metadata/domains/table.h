#pragma once

#include "host/domain.h"

namespace Zelk::Tool {

/// The domains that the program knows. A kind that several have is that of the first one with
/// loaded sources.
const DomainTable& Domains();

// One file each.
DomainRow MetamodelDomain();
DomainRow AuthenticationDomain();
DomainRow CliDomain();

}  // namespace Zelk::Tool
