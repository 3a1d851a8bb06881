#pragma once

#include <string>
#include <vector>

namespace Zelk::Tool::Complete {

/// The shells that there is a script for.
std::vector<std::string> CompletedShells();

/// What the shell reads to complete the words of this program. The script knows none of them: it
/// asks the program. Empty for a shell that there is no script for.
std::string CompletionScript(const std::string& shell);

}  // namespace Zelk::Tool::Complete
