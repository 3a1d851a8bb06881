#include <istream>
#include <string>

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
  const auto& sources = call.Args().sources;
  if (streams.in_is_terminal && streams.out_terminal.is_terminal) {
    RunDialogue(SessionLanguage(), sources, streams);
    return ExitStatus::kOk;
  }
  Session session(SessionLanguage(), streams);
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
  command.summary = "Ask one question after the other, while sources come, change and go";
  command.details =
      "On a terminal with a history and completed words; elsewhere the lines of standard input\n"
      "are read, and the exit status is that of the first one that fails. The line help tells\n"
      "what can be said: most commands of this program, and changes of what is loaded.\n\n";
  command.example = "shell --source metadata";
  command.scope = Scope::kProgram;
  command.run = RunShell;
  return command;
}

}  // namespace Zelk::Tool
