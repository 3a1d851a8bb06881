#pragma once

#include <string>

#include "host/domain.h"

namespace Zelk::Tool {

/// The row of the domain whose root key comes first in the file's root object. Null for a file that
/// has none, or cannot be read.
const DomainRow* FindDomain(const std::string& path, const DomainTable& table);

/// The row of the domain that the file belongs to: the first member of its root object that is a
/// domain's root key decides. A file that has none, or cannot be read, is the first row's, whose
/// services then report what is wrong with it. The table must not be empty.
const DomainRow& DomainOf(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
