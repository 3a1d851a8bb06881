#include "commands/table.h"

#include "render/page.h"

// One row a command, in the order in which --help shows them. The command NAME is made by
// NAMECommand() in a file of its own.
#define ZELK_TOOL_COMMANDS(ROW) \
  ROW(Create)                   \
  ROW(Delete)                   \
  ROW(Reload)                   \
  ROW(Check)                    \
  ROW(Lint)                     \
  ROW(Diff)                     \
  ROW(Explain)                  \
  ROW(Tree)                     \
  ROW(List)                     \
  ROW(Get)                      \
  ROW(Search)                   \
  ROW(Which)                    \
  ROW(Uses)                     \
  ROW(Fingerprint)              \
  ROW(Usage)                    \
  ROW(Schema)                   \
  ROW(Docs)                     \
  ROW(Shell)                    \
  ROW(Completion)               \
  ROW(Man)                      \
  ROW(Help)                     \
  ROW(Quit)                     \
  ROW(Exit)

namespace Zelk::Tool {

#define ZELK_TOOL_DECLARE(name) Command name##Command();
ZELK_TOOL_COMMANDS(ZELK_TOOL_DECLARE)
#undef ZELK_TOOL_DECLARE

// What the completion scripts call.
Command CompleteCommand();

namespace {

Language MakeLanguage(const std::string& program, Scope scope) {
  Language language{program, {}, {}};
  const auto add = [&](Command command) {
    if (command.scope == Scope::kEverywhere || command.scope == scope) {
      language.commands.push_back(std::move(command));
    }
  };
#define ZELK_TOOL_ADD(name) add(name##Command());
  ZELK_TOOL_COMMANDS(ZELK_TOOL_ADD)
#undef ZELK_TOOL_ADD
  if (scope == Scope::kProgram) {
    language.hidden.push_back(CompleteCommand());
    language.options.push_back(
        {"source", "[ID=]PATH", Word::kSource,
         "Load a file, a folder or standard input (-); may be given several times",
         &Arguments::sources});
    language.options.push_back({"no-default-sources", "", Word::kNone,
                                "Load nothing but what --source gives",
                                &Arguments::no_default_sources});
  }
  language.options.push_back(
      {"output", "FORMAT", Word::kChoice,
       "table, plain or json; unless given, a table on a terminal, else plain",
       &Arguments::output});
  language.options.push_back(
      {"json", "", Word::kNone, "The same as --output json", &Arguments::json});
  language.options.push_back({"color", "WHEN", Word::kChoice,
                              "auto, always or never; auto is on terminals without NO_COLOR",
                              &Arguments::color, Colors()});
  language.options.push_back({"no-pager", "", Word::kNone,
                              "Do not show what is longer than the screen in a pager",
                              &Arguments::no_pager});
  return language;
}

}  // namespace

const Language& ProgramLanguage() {
  static const Language language =
      MakeLanguage(std::string(Render::kProgramName) + " ", Scope::kProgram);
  return language;
}

const Language& SessionLanguage() {
  static const Language language = MakeLanguage("", Scope::kSession);
  return language;
}

}  // namespace Zelk::Tool
