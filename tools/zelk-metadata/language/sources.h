#pragma once

#include <string>
#include <vector>

#include "host/host.h"
#include "language/invocation.h"

namespace Zelk::Tool {

/// Loads the values of --source and prints what is wrong with those that fail. The others are
/// loaded all the same; only Ctrl-C in a session stops. False if one failed.
bool LoadSources(Host& host, const std::vector<std::string>& sources, const Streams& streams);

/// What each source holds by itself. False if one that was loaded before failed now.
bool LoadOutlines(Host& host, std::vector<SourceOutline>& outlines, const Streams& streams);

}  // namespace Zelk::Tool
