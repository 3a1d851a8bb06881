#pragma once

#include <string>
#include <vector>

namespace Zelk::Tool::Complete {

/// The shells that have a script.
std::vector<std::string> CompletedShells();

/// What the shell reads to complete the words of this program. The script has no words of its own:
/// it asks the program. Empty for a shell without a script.
std::string CompletionScript(const std::string& shell);

}  // namespace Zelk::Tool::Complete
