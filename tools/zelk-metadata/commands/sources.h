#pragma once

#include "commands/command.h"
#include "host/host.h"

namespace Zelk::Tool {

/// Whether standard input may be read. Not in a session, whose lines come from there; that is
/// complained of.
bool MayReadInput(const Streams& streams);

/// Loads every --source and complains of those that fail, which does not keep the others from
/// loading; Ctrl-C in a session does. False if one failed.
bool LoadSources(Host& host, const Arguments& arguments, const Streams& streams);

/// What each source holds by itself. False if one that was loaded before failed now.
bool LoadOutlines(Host& host, std::vector<SourceOutline>& outlines, const Streams& streams);

}  // namespace Zelk::Tool
