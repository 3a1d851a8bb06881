#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

namespace Zelk::Tool {

/// A line of the log from which GitHub makes an annotation.
struct WorkflowCommand {
  /// "error", "warning" or "notice".
  std::string name;
  std::string file;
  /// 0 for a file as a whole.
  std::uint64_t line = 0;
  std::uint64_t column = 0;
  std::string title = {};
  std::string text = {};
};

/// Writes one line, whatever is in the texts.
void Write(std::ostream& out, const WorkflowCommand& command);

}  // namespace Zelk::Tool
