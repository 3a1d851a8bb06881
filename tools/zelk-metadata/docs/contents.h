#pragma once

#include <string>

#include "analysis/workspace.h"

namespace Zelk::Tool::Docs {

/// What browsers show in which scripts are switched off: components, packages and services,
/// schemes, namespaces, commands and sources as lists.
std::string ContentsHtml(const Analysis::Workspace& workspace);

}  // namespace Zelk::Tool::Docs
