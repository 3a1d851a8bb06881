#pragma once

#include <string>
#include <utility>
#include <vector>

// What --help and the manual page say about the program as a whole.

namespace Zelk::Tool {

/// One line.
extern const char kDescription[];

/// Where the examples run, how sources are given, and how answers look. Each line is a paragraph,
/// which is wrapped where it is shown.
extern const char kAboutExamples[];
extern const char kAboutSources[];
extern const char kAboutOutput[];

/// Each exit status with its meaning.
const std::vector<std::pair<int, std::string>>& ExitStatusTexts();

}  // namespace Zelk::Tool
