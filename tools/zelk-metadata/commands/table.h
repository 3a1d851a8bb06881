#pragma once

#include "language/command.h"

namespace Zelk::Tool {

/// What the program can be asked on its command line.
const Language& ProgramLanguage();

/// What can be said in a session.
const Language& SessionLanguage();

}  // namespace Zelk::Tool
