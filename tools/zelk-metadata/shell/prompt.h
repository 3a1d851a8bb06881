#pragma once

#include <memory>
#include <string>

namespace Zelk::Tool::Shell {

class Session;

/// Lines that are typed at the terminal of the process: with a history that outlives it, and
/// with words completed by the session. One at a time.
class Prompt {
 public:
  explicit Prompt(const Session& session);
  Prompt(const Prompt&) = delete;
  Prompt& operator=(const Prompt&) = delete;

  ~Prompt();

  /// Asks for a line. Empty after Ctrl-C; false after Ctrl-D, or once the terminal is gone.
  bool Read(std::string& line);

 private:
  struct Editor;

  std::unique_ptr<Editor> editor_;
};

}  // namespace Zelk::Tool::Shell
