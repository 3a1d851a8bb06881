#include <istream>
#include <string>

#include "commands/table.h"
#include "shell/dialogue.h"
#include "shell/session.h"

namespace Zelk::Tool {

/// Runs lines until one says that it is over, or none is left. One that fails does not end a
/// script, but decides its exit status.
ExitStatus RunShell(const Arguments& arguments, const Streams& streams) {
  if (IsDialogue(streams)) {
    RunDialogue(arguments.sources, streams);
    return ExitStatus::kOk;
  }
  Session session(streams);
  const bool loaded = session.Load(arguments.sources);
  ExitStatus first = loaded ? ExitStatus::kOk : ExitStatus::kSourceFailed;
  for (std::string line; !session.HasEnded() && std::getline(streams.in, line);) {
    const ExitStatus status = session.Run(line);
    if (first == ExitStatus::kOk) first = status;
  }
  return first;
}

}  // namespace Zelk::Tool
