#pragma once

#include <string>
#include <vector>

namespace Zelk::Testing {

/// Runs the program with each line of arguments, in the folder of the test data, and compares what
/// it printed and how it ended with tests/data/tool/NAME.golden. With ZELK_UPDATE_GOLDEN in the
/// environment the file is written instead; read the change before it is committed.
///
/// In the file "$" begins a command, "!" a line on standard error and "=" the exit status.
void ExpectGolden(const std::string& name, const std::vector<std::string>& lines);

}  // namespace Zelk::Testing
