#pragma once

#include <string>
#include <vector>

#include "commands/command.h"
#include "complete/completion.h"
#include "host/host.h"

namespace Zelk::Tool {

/// What the user can be helped with at the end of a line.
struct LineCompletion {
  /// How many bytes at the end of the line are replaced, and what by.
  std::size_t replaced = 0;
  std::string text;

  /// What the last word could become, if that is more than one thing.
  std::vector<Choice> choices;
};

/// Questions and changes, one line each, on containers that stay loaded. Knows nothing of how the
/// lines come about.
class Session {
 public:
  /// Where the streams tell, the answers go. Their own session is not looked at.
  explicit Session(const Streams& streams);

  /// Loads the values of --source. False if one failed.
  bool Load(const std::vector<std::string>& sources);

  /// Has the answers that follow fit the terminal as it is now.
  void Fit(const Terminal& terminal) { streams_.out_terminal = terminal; }

  /// Does what the line says. An empty one says nothing.
  ExitStatus Run(const std::string& line);

  /// Whether a line has said that it is over.
  bool HasEnded() const { return has_ended_; }

  /// What can be typed behind the line.
  LineCompletion Complete(const std::string& line) const;

 private:
  Host host_;
  Streams streams_;
  bool has_ended_ = false;
};

/// What can be said in a session.
const Language& SessionLanguage();

}  // namespace Zelk::Tool
