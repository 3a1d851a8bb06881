#include "language/invocation.h"
#include "language/operands.h"

namespace Zelk::Tool {
namespace {

ExitStatus RunDelete(Invocation& call) {
  ExitStatus status = ExitStatus::kOk;
  for (const std::string& id : call.Args().ids) {
    if (call.GetHost().Delete(id) == 0) status = call.FailAsSource(id);
  }
  return status;
}

}  // namespace

Command DeleteCommand() {
  Command command;
  command.name = "delete";
  command.summary = "Delete sources";
  command.details = kAboutFolders;
  command.operands = {SourceIdsOperand(true)};
  command.scope = Scope::kSession;
  command.run = RunDelete;
  return command;
}

}  // namespace Zelk::Tool
