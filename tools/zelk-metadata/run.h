#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace Zelk::Tool {

/// The whole program: `args` without the program's name, answers on `out`, complaints on `err`.
/// Returns the exit status, an ExitStatus.
int Run(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
        std::ostream& err);

}  // namespace Zelk::Tool
