#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "complete/scripts.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

ExitStatus RunCompletion(Invocation& call) {
  const std::string& shell = call.Args().text;
  const std::string script = Complete::CompletionScript(shell);
  if (script.empty()) {
    return call.Fail(ExitStatus::kUsage, fmt::format("unknown shell '{}'; the shells are {}", shell,
                                                     fmt::join(Complete::CompletedShells(), ", ")));
  }
  call.Out() << script;
  return ExitStatus::kOk;
}

}  // namespace

Command CompletionCommand() {
  Command command;
  command.name = "completion";
  command.summary = "Print the script that completes commands in a shell";
  command.details =
      "In ~/.bashrc:\n"
      "    source <(zelk-metadata completion bash)\n"
      "In ~/.zshrc, after compinit:\n"
      "    source <(zelk-metadata completion zsh)\n"
      "In ~/.config/fish/config.fish:\n"
      "    zelk-metadata completion fish | source\n"
      "Shells know the script already if the program was installed from a package. Names are "
      "completed from the sources before them on the line, unless those are very large.\n";
  command.operands = {{"SHELL", Word::kChoice, true, "bash, zsh or fish", &Arguments::text,
                       Complete::CompletedShells()}};
  command.example = "completion bash";
  command.scope = Scope::kProgram;
  command.takes_sources = false;
  command.run = RunCompletion;
  return command;
}

}  // namespace Zelk::Tool
