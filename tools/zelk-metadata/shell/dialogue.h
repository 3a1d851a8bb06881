#pragma once

#include <string>
#include <vector>

#include "language/invocation.h"

namespace Zelk::Tool::Shell {

/// Loads the sources and reads lines from the terminal of the process until one ends the session.
/// Ctrl-C ends an answer. `output` is that of lines without --output.
void RunDialogue(const Language& language, const std::vector<std::string>& sources,
                 const std::string& output, const Streams& streams);

}  // namespace Zelk::Tool::Shell
