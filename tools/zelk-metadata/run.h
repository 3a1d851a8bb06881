#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "render/terminal.h"

namespace Zelk::Tool {

/// The whole program: `args` without the program's name, answers on `out`, complaints on `err`.
/// Returns the exit status, an ExitStatus. Unless told otherwise, nobody sits at a terminal.
int Run(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
        std::ostream& err, const Terminal& out_terminal = {}, const Terminal& err_terminal = {});

}  // namespace Zelk::Tool
