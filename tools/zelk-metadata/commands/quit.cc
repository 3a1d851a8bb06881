#include "language/invocation.h"

namespace Zelk::Tool {

Command QuitCommand() {
  Command command;
  command.name = "quit";
  command.summary = "End the session";
  command.scope = Scope::kSession;
  command.run = [](Invocation& call) {
    call.EndSession();
    return ExitStatus::kOk;
  };
  return command;
}

Command ExitCommand() {
  Command command = QuitCommand();
  command.name = "exit";
  command.summary = "The same as quit";
  return command;
}

}  // namespace Zelk::Tool
