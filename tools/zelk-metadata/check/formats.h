#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "check/walk.h"

namespace Zelk::Tool {

/// Walks the document as a file of the domain and leaves the messages that the library gives when
/// it loads it. The result is whether it loads. Empty for a domain whose files are not known here.
std::optional<bool> WalkDocument(Walk& walk, const std::string& domain);

// One file each.
bool WalkMetamodel(Walk& walk);
bool WalkAuthentication(Walk& walk);
bool WalkCli(Walk& walk);

}  // namespace Zelk::Tool
