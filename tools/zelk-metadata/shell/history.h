#pragma once

#include <string>

namespace Zelk::Tool {

/// The file that keeps the lines of earlier sessions, in the folder for what programs remember; the
/// folder is made if need be. Empty where nothing can be kept.
std::string HistoryFile();

}  // namespace Zelk::Tool
