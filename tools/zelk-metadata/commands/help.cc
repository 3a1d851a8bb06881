#include "language/help.h"

#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

/// Outside of a terminal.
constexpr std::size_t kWidth = 100;

ExitStatus RunHelp(Invocation& call) {
  const Language& language = call.GetLanguage();
  const std::string& name = call.Args().text;
  const Command* const command = language.Find(name);
  if (!name.empty() && command == nullptr) {
    return call.Fail(ExitStatus::kNotFound, UnknownCommand(language, name));
  }
  Render::Terminal terminal = call.GetStreams().out_terminal;
  if (terminal.width == 0) terminal.width = kWidth;
  Render::Page page(call.Out(), terminal);
  if (command != nullptr) {
    WriteHelp(page, language, *command);
  } else if (language.IsOfSession()) {
    WriteCommands(page, 0, language);
  } else {
    WriteHelp(page, language);
  }
  return ExitStatus::kOk;
}

}  // namespace

Command HelpCommand() {
  Command command;
  command.name = "help";
  command.summary = "Describe the program, or one command";
  command.example = "help usage";
  command.operands = {
      {"COMMAND", Word::kCommand, false, "The name of a command", &Arguments::text}};
  command.takes_sources = false;
  command.run = RunHelp;
  return command;
}

}  // namespace Zelk::Tool
