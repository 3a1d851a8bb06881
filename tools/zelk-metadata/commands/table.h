#pragma once

#include <vector>

#include "commands/command.h"

namespace Zelk::Tool {

/// All commands, in the order in which --help shows them.
const std::vector<Command>& Commands();

/// The options that all commands take, before and after the command's name.
const std::vector<OptionDescription>& SharedOptions();

// What the commands do, one file each.
ExitStatus RunCheck(const Arguments& arguments, const Streams& streams);
ExitStatus RunExplain(const Arguments& arguments, const Streams& streams);
ExitStatus RunList(const Arguments& arguments, const Streams& streams);
ExitStatus RunGet(const Arguments& arguments, const Streams& streams);
ExitStatus RunFingerprint(const Arguments& arguments, const Streams& streams);
ExitStatus RunTree(const Arguments& arguments, const Streams& streams);
ExitStatus RunSearch(const Arguments& arguments, const Streams& streams);
ExitStatus RunWhich(const Arguments& arguments, const Streams& streams);
ExitStatus RunUsage(const Arguments& arguments, const Streams& streams);

}  // namespace Zelk::Tool
