#pragma once

#include <vector>

#include "commands/command.h"

namespace Zelk::Tool {

/// All commands, in the order in which --help shows them.
const std::vector<Command>& Commands();

// One file each.
Command CheckCommand();
Command ListCommand();
Command GetCommand();
Command FingerprintCommand();

}  // namespace Zelk::Tool
