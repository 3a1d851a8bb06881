#include <iostream>
#include <string>
#include <unistd.h>

#include "commands/table.h"
#include "shell/prompt.h"
#include "shell/session.h"

namespace Zelk::Tool {
namespace {

/// Somebody types, and sees the answers.
bool IsDialogue(const Streams& streams) {
  return &streams.in == &std::cin && isatty(STDIN_FILENO) != 0 && streams.out_terminal.is_terminal;
}

}  // namespace

/// Runs lines until one says that it is over, or none is left. One that fails does not end a
/// script, but decides its exit status.
ExitStatus RunShell(const Arguments& arguments, const Streams& streams) {
  Session session(streams);
  const bool loaded = session.Load(arguments.sources);
  if (IsDialogue(streams)) {
    Prompt prompt(session);
    for (std::string line; !session.HasEnded() && prompt.Read(line);) {
      session.Run(line);
      streams.out.flush();
    }
    return ExitStatus::kOk;
  }
  ExitStatus first = loaded ? ExitStatus::kOk : ExitStatus::kSourceFailed;
  for (std::string line; !session.HasEnded() && std::getline(streams.in, line);) {
    const ExitStatus status = session.Run(line);
    if (first == ExitStatus::kOk) first = status;
  }
  return first;
}

}  // namespace Zelk::Tool
