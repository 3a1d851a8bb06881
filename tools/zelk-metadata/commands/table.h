#pragma once

#include <vector>

#include "commands/command.h"

namespace Zelk::Tool {

/// What the program can be asked on its command line, in the order in which --help shows it.
const Language& ProgramLanguage();

// What sessions have of it: the commands that ask something, and the options without sources.
std::vector<Command> Questions();
std::vector<OptionDescription> SessionOptions();

/// How many ids `which` takes for the kind, or nothing for one that it cannot be asked.
std::optional<IdCount> IdsOfWhich(const Kind& kind);

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
ExitStatus RunShell(const Arguments& arguments, const Streams& streams);
ExitStatus RunCompletion(const Arguments& arguments, const Streams& streams);
ExitStatus RunManual(const Arguments& arguments, const Streams& streams);

/// What the completion scripts call; people do not, so it is in no table. `words` are those of the
/// command line without the program, the last one, which is to be completed, as far as it goes.
ExitStatus RunComplete(const std::vector<std::string>& words, const Streams& streams);

}  // namespace Zelk::Tool
