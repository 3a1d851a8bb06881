#include <istream>
#include <string>
#include <vector>

#include "commands/table.h"
#include "language/invocation.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace Zelk::Tool {
namespace {

/// Runs lines until one ends the session, or none is left. A line that fails does not end a script,
/// but the first one decides its exit status.
ExitStatus RunShell(Invocation& call) {
  const Streams& streams = call.GetStreams();
  const std::vector<std::string> sources = call.Sources();
  if (streams.in_is_terminal && streams.out_terminal.is_terminal) {
    Shell::RunDialogue(SessionLanguage(), sources, streams);
    return ExitStatus::kOk;
  }
  Shell::Session session(SessionLanguage(), streams);
  ExitStatus first = session.Load(sources) ? ExitStatus::kOk : ExitStatus::kSourceFailed;
  for (std::string line; !session.HasEnded() && std::getline(streams.in, line);) {
    const ExitStatus status = session.Run(line);
    if (first == ExitStatus::kOk) first = status;
  }
  return first;
}

}  // namespace

Command ShellCommand() {
  Command command;
  command.name = "shell";
  command.summary = "Start a session in which sources can be loaded, reloaded and deleted";
  command.details =
      "On a terminal it has a history and completes words. Elsewhere it reads lines from standard\n"
      "input, and the exit status is that of the first line that fails. The line help lists the\n"
      "commands: most of those of this program, and create, delete and reload.\n\n";
  command.example = "shell --source metadata";
  command.scope = Scope::kProgram;
  command.run = RunShell;
  return command;
}

}  // namespace Zelk::Tool
