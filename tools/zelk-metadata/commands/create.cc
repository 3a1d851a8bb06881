#include <algorithm>

#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

ExitStatus RunCreate(Invocation& call) {
  const auto& sources = call.Args().sources;
  const bool reads_input = std::any_of(
      sources.begin(), sources.end(),
      [](const std::string& source) { return ParseSourceArgument(source).path == "-"; });
  if (reads_input && !call.MayReadInput()) return ExitStatus::kUsage;
  call.Load();
  return ExitStatus::kOk;
}

}  // namespace

Command CreateCommand() {
  Command command;
  command.name = "create";
  command.summary = "Load files or folders";
  command.operands = {{"SOURCE", Word::kSource, true, "A file or a folder, given as [ID=]PATH",
                       &Arguments::sources}};
  command.scope = Scope::kSession;
  command.run = RunCreate;
  return command;
}

}  // namespace Zelk::Tool
