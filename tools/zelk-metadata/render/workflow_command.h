#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>

namespace Zelk::Tool::Render {

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

/// Writes the commands of a step. GitHub shows the first ten of each kind and drops the rest
/// without a word, so the others are lines of the log, and the last notice counts them.
class WorkflowCommands {
 public:
  WorkflowCommands(std::ostream& out, std::string title) : out_(out), title_(std::move(title)) {}

  void Add(const WorkflowCommand& command);

  /// After the last one.
  void End();

 private:
  std::ostream& out_;
  const std::string title_;
  std::map<std::string, std::size_t> shown_;
  std::size_t left_ = 0;
};

}  // namespace Zelk::Tool::Render
