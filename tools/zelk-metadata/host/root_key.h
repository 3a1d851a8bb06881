#pragma once

#include <string>

#include "host/domain.h"

namespace Zelk::Tool {

/// The row of the domain whose root key comes first in the file's root object. Null for a file that
/// has none, or cannot be read.
const DomainRow* FindDomain(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
