#pragma once

#include <string>
#include <vector>

#include "language/invocation.h"

namespace Zelk::Tool {

/// The whole program: `args` without the program's name. Returns the exit status, an ExitStatus.
int Run(const std::vector<std::string>& args, const Streams& streams);

}  // namespace Zelk::Tool
