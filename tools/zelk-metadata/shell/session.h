#pragma once

#include <string>
#include <vector>

#include "complete/completion.h"
#include "language/invocation.h"

namespace Zelk::Tool::Shell {

/// How the end of a line can be completed.
struct LineCompletion {
  /// How many bytes at the end of the line are replaced, and what by.
  std::size_t replaced = 0;
  std::string text;

  /// What the last word could become, if that is more than one thing.
  std::vector<Complete::Choice> choices;
};

/// Runs lines, each a question or a change, on sources that stay loaded. Where the lines come from
/// is not its concern.
class Session {
 public:
  /// The language must outlive the session. Answers are written to `streams`, in the format
  /// `output` unless a line asks for another.
  Session(const Language& language, const Streams& streams, const std::string& output = "");

  /// Loads the values of --source. False if one failed.
  bool Load(const std::vector<std::string>& sources);

  /// The answers that follow are for a terminal of this size.
  void Fit(const Render::Terminal& terminal) {
    streams_.out_terminal.width = terminal.width;
    streams_.out_terminal.height = terminal.height;
  }

  /// The line that follows is that line of a script.
  void SetScriptLine(std::size_t number) {
    streams_.script_line = "line " + std::to_string(number) + ": ";
  }

  /// Runs a line. An empty one does nothing.
  ExitStatus Run(const std::string& line);

  /// Whether a line ended the session.
  bool HasEnded() const { return state_.has_ended; }

  /// The completions of the line.
  LineCompletion Complete(const std::string& line) const;

 private:
  const Language& language_;
  Streams streams_;
  SessionState state_;
};

}  // namespace Zelk::Tool::Shell
