#include <ostream>

#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

ExitStatus RunHelp(Invocation& call) {
  const Language& language = call.GetLanguage();
  const std::string& name = call.Args().text;
  if (!name.empty()) {
    if (language.Find(name) == nullptr) {
      return call.Fail(ExitStatus::kNotFound, UnknownCommand(language, name));
    }
    call.Out() << ParseArguments({name, "--help"}, language).help;
    return ExitStatus::kOk;
  }
  std::vector<std::pair<std::string, std::string>> pairs;
  for (const Command& command : language.commands) {
    pairs.emplace_back(command.name, command.summary);
  }
  Page(call.Out(), call.GetStreams().out_terminal).Pairs(0, pairs);
  return ExitStatus::kOk;
}

}  // namespace

Command HelpCommand() {
  Command command;
  command.name = "help";
  command.summary = "List the commands, or describe one";
  command.operands = {
      {"COMMAND", Word::kCommand, false, "The name of a command", &Arguments::text}};
  command.scope = Scope::kSession;
  command.run = RunHelp;
  return command;
}

}  // namespace Zelk::Tool
