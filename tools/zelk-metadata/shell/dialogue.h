#pragma once

#include <string>
#include <vector>

#include "commands/command.h"

namespace Zelk::Tool {

/// Whether somebody types, and sees the answers.
bool IsDialogue(const Streams& streams);

/// Loads the sources and asks for lines until one says that it is over. Ctrl-C ends an answer.
void RunDialogue(const std::vector<std::string>& sources, const Streams& streams);

}  // namespace Zelk::Tool
