#pragma once

#include <iosfwd>

#include "docs/data.h"

namespace Zelk::Tool::Docs {

/// Writes one HTML file that needs nothing else: no server, no network, no other file. Its content
/// security policy forbids every request and every script but its own.
void WritePage(std::ostream& out, const Subject& subject);

}  // namespace Zelk::Tool::Docs
