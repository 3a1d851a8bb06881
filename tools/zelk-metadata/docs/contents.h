#pragma once

#include <string>

#include "docs/data.h"

namespace Zelk::Tool::Docs {

/// What browsers show without scripts: lists of components with their packages
/// and services, of schemes, of namespaces with their commands, and of files, those that do not
/// load or not as a whole with their messages.
std::string ContentsHtml(const Subject& subject);

}  // namespace Zelk::Tool::Docs
