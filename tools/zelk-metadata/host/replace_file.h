#pragma once

#include <string>
#include <string_view>

namespace Zelk::Tool {

/// Writes the text to the file. A file that is there keeps its old text unless all of the new one
/// is written, and its permissions; a link still leads to it. Devices and pipes are written
/// directly. Returns a complaint with the reason; empty if all was written.
std::string ReplaceFile(const std::string& path, std::string_view text);

}  // namespace Zelk::Tool
