#include <ostream>
#include <sstream>

#include "commands/table.h"
#include "language/about.h"
#include "language/help.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

/// A text as roff prints it: hyphens that can be copied, and nothing at the beginning of a line
/// that would be a request.
std::string Escaped(const std::string& text) {
  std::string escaped;
  bool at_line_begin = true;
  for (const char character : text) {
    if (at_line_begin && (character == '.' || character == '\'')) escaped += "\\&";
    at_line_begin = character == '\n';
    if (character == '\\') {
      escaped += "\\e";
    } else if (character == '-') {
      escaped += "\\-";
    } else {
      escaped += character;
    }
  }
  return escaped;
}

std::string BoldText(const std::string& text) {
  return "\\fB" + Escaped(text) + "\\fR";
}

std::string ItalicText(const std::string& text) {
  return "\\fI" + Escaped(text) + "\\fR";
}

void WriteTagged(std::ostream& out, const std::string& tag, const std::string& text) {
  out << ".TP\n" << tag << '\n' << Escaped(text) << '\n';
}

void WriteOption(std::ostream& out, const OptionDescription& option) {
  const std::string value = option.value_name.empty() ? "" : " " + ItalicText(option.value_name);
  WriteTagged(out, BoldText("--" + option.name) + value, option.summary);
}

/// Each line is a paragraph; lines that begin with a blank belong together.
void WriteText(std::ostream& out, const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) continue;
    out << (line.front() == ' ' ? ".br\n" : ".PP\n") << Escaped(line) << '\n';
  }
}

void WriteCommand(std::ostream& out, const Language& language, const Command& command) {
  out << ".SS " << command.name << '\n';
  out << BoldText(language.program + command.name) << OperandsText(command, ItalicText) << '\n';
  WriteText(out, command.summary + '.');
  WriteText(out, command.details);
  for (const auto& operand : command.operands) {
    WriteTagged(out, ItalicText(operand.name), operand.summary);
  }
  for (const auto& option : command.options) WriteOption(out, option);
  out << ".PP\nExample:\n.RS\n" << BoldText(language.program + command.example) << "\n.RE\n";
}

/// What can be said in a session only.
void WriteSessionCommands(std::ostream& out) {
  out << ".SH SESSIONS\nCommands of the shell only:\n";
  for (const Command& command : SessionLanguage().commands) {
    if (command.scope != Scope::kSession) continue;
    const std::string end = command.details.empty() ? "." : ".\n" + command.details;
    WriteTagged(out, BoldText(command.name) + OperandsText(command, ItalicText),
                command.summary + end);
  }
}

void WritePage(std::ostream& out) {
  const Language& language = ProgramLanguage();
  out << ".TH ZELK\\-METADATA 1 \"\" \"zelk-metadata " ZELK_METADATA_VERSION "\"\n"
      // Nothing is stretched or hyphenated: names are too long for that.
      << ".ad l\n.nh\n"
      << ".SH NAME\nzelk\\-metadata \\- check and browse files of metadata\n"
      << ".SH SYNOPSIS\n.B zelk\\-metadata\n\\fICOMMAND\\fR [\\fIOPTION\\fR...] "
         "[\\fIWORD\\fR...]\n";
  out << ".SH DESCRIPTION\n" << Escaped(kDescription) << '\n';
  WriteText(out, kAboutSources);
  WriteText(out, kAboutOutput);
  WriteText(out, kAboutExamples);
  out << ".SH OPTIONS\nBefore or after the command.\n";
  for (const auto& option : language.options) WriteOption(out, option);
  WriteTagged(out, BoldText("--help"), "Print the help; after a command, that of the command");
  WriteTagged(out, BoldText("--version"), "Print the version");
  out << ".SH COMMANDS\n";
  for (const Command& command : language.commands) WriteCommand(out, language, command);
  WriteSessionCommands(out);
  out << ".SH EXIT STATUS\n";
  for (const auto& [status, text] : ExitStatusTexts()) {
    WriteTagged(out, BoldText(std::to_string(status)), text);
  }
  out << ".SH ENVIRONMENT\n";
  WriteTagged(out, BoldText("NO_COLOR"), "If not empty, colours are off without --color");
  WriteTagged(
      out, BoldText("ZELK_METADATA_PAGER, PAGER"),
      "The pager of answers that are longer than the screen; less by default, none if empty "
      "or cat");
  WriteTagged(out, BoldText("LESS"), "The options of less, FRX by default");
  WriteTagged(out, BoldText("COLUMNS"), "The width to wrap text to, instead of the terminal's");
  WriteTagged(out, BoldText("ZELK_METADATA_PATH"), "Default sources, separated by colons");
  WriteTagged(out, BoldText("XDG_STATE_HOME"),
              "The folder of the history, ~/.local/state by default");
  out << ".SH FILES\n";
  WriteTagged(out, ItalicText("$XDG_STATE_HOME/zelk-metadata/history"),
              "The lines of earlier sessions");
  WriteTagged(out, ItalicText(".zelk-metadata.json"), "The settings of a project");
}

/// The manual page, made from what the program knows of itself.
ExitStatus RunMan(Invocation& call) {
  WritePage(call.Out());
  return ExitStatus::kOk;
}

}  // namespace

Command ManCommand() {
  Command command;
  command.name = "man";
  command.summary = "Print the manual page";
  command.details = "As a page for man: zelk-metadata man | man -l -\n";
  command.example = "man";
  command.scope = Scope::kProgram;
  command.takes_sources = false;
  command.run = RunMan;
  return command;
}

}  // namespace Zelk::Tool
