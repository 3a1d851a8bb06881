#pragma once

#include <string>

#include "host/domain.h"

namespace Zelk::Tool {

/// The row of the domain whose root key the first member of the file's root object is that is one
/// at all. Null for a file that has none, or cannot be looked into.
const DomainRow* FindDomain(const std::string& path, const DomainTable& table);

/// The row of the domain that the file belongs to: the first member of its root object that is a
/// domain's root key decides. A file that has none, or cannot be looked into, is the first row's,
/// whose services then tell what is wrong with it. The table must not be empty.
const DomainRow& DomainOf(const std::string& path, const DomainTable& table);

}  // namespace Zelk::Tool
