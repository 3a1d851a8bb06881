#include <istream>
#include <string>
#include <vector>

#include "commands/table.h"
#include "language/invocation.h"
#include "language/operands.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace Zelk::Tool {
namespace {

/// Runs lines until one ends the session, or none is left. A line that fails does not end a script,
/// but the first one decides its exit status.
ExitStatus RunShell(Invocation& call) {
  const Streams& streams = call.GetStreams();
  const std::vector<std::string> sources = call.Sources();
  const std::string output = call.WantsJson() ? "json" : call.Args().output;
  if (streams.in_is_terminal && streams.out_terminal.is_terminal) {
    Shell::RunDialogue(SessionLanguage(), sources, output, streams);
    return ExitStatus::kOk;
  }
  Shell::Session session(SessionLanguage(), streams, output);
  ExitStatus first = session.Load(sources) ? ExitStatus::kOk : ExitStatus::kSourceFailed;
  std::size_t number = 0;
  for (std::string line; !session.HasEnded() && std::getline(streams.in, line);) {
    session.SetScriptLine(++number);
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
      "On a terminal it has a history and completes words. Elsewhere it reads lines from standard "
      "input, and the exit status is that of the first line that fails. The line help lists the "
      "commands: most of those of this program, and create, delete and reload. --output and "
      "--json are for all lines that have neither.\n";
  command.outputs = TableOutputs();
  command.is_paged = false;
  command.example = "shell --source metadata";
  command.scope = Scope::kProgram;
  command.run = RunShell;
  return command;
}

}  // namespace Zelk::Tool
