#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/host.h"
#include "language/invocation.h"

namespace Zelk::Tool {

/// The default sources, unless the arguments leave them out, and those of --source. Prints what is
/// wrong with the defaults; false in that case.
bool FindSources(const Arguments& arguments, std::vector<std::string>& sources,
                 const Streams& streams);

/// Loads the values of --source and prints what is wrong with those that fail. The others are
/// loaded all the same; only Ctrl-C in a session stops. False if one failed.
bool LoadSources(Host& host, const std::vector<std::string>& sources, const Streams& streams);

/// What each source holds by itself. False if a file has changed since it was loaded.
bool LoadOutlines(Host& host, std::vector<SourceOutline>& outlines, const Streams& streams);

/// Reloads those sources, as Host::Reload() does.
std::vector<ReloadReport> ReloadSources(Host& host, const std::optional<std::string>& text,
                                        const Streams& streams);

}  // namespace Zelk::Tool
