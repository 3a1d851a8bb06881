#include "language/help.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "language/about.h"

namespace Zelk::Tool {
namespace {

using Render::Page;

using Pairs = std::vector<std::pair<std::string, std::string>>;

void Add(Pairs& pairs, const OptionDescription& option, const std::string& summary) {
  const std::string value = option.value_name.empty() ? "" : " " + option.value_name;
  pairs.emplace_back("--" + option.name + value, summary);
}

Pairs OptionsOf(const Language& language, const Command& command) {
  Pairs pairs;
  for (const OptionDescription& option : command.options) Add(pairs, option, option.summary);
  for (const OptionDescription& option : language.options) {
    if (!command.Takes(option)) continue;
    const bool is_output = option.word == Word::kChoice && option.choices.empty();
    const std::string outputs = fmt::format("One of {}", fmt::join(command.outputs, ", "));
    Add(pairs, option, is_output ? outputs : option.summary);
  }
  return pairs;
}

void WritePairs(Page& page, const char* heading, const Pairs& pairs) {
  if (pairs.empty()) return;
  page.Heading(heading);
  page.Pairs(1, pairs);
}

void WriteText(Page& page, const char* heading, const std::string& text) {
  page.Heading(heading);
  page.Paragraph(1, text);
}

}  // namespace

std::string OperandsText(const Command& command,
                         const std::function<std::string(const std::string&)>& shown) {
  std::string text;
  for (const OperandDescription& operand : command.operands) {
    const std::string name = shown(operand.name) + (operand.TakesAll() ? "..." : "");
    text += operand.required ? " " + name : " [" + name + "]";
  }
  return text;
}

void WriteCommands(Page& page, std::size_t level, const Language& language) {
  Pairs commands;
  for (const Command& command : language.commands) {
    commands.emplace_back(command.name, command.summary);
  }
  page.Pairs(level, commands);
}

void WriteHelp(Page& page, const Language& language) {
  page.Title(fmt::format("Usage: {}COMMAND [OPTION...] [WORD...]", language.program));
  page.Paragraph(1, kDescription);
  page.Heading("Commands:");
  WriteCommands(page, 1, language);
  Pairs options;
  for (const OptionDescription& option : language.options) Add(options, option, option.summary);
  options.emplace_back("--help", "Print this help; after a command, that of the command");
  options.emplace_back("--version", "Print the version");
  WritePairs(page, "Options, before or after the command:", options);
  page.Heading("Examples:");
  for (const Command& command : language.commands) {
    page.Line(1, language.program + command.example);
  }
  page.Paragraph(1, kAboutExamples);
  WriteText(page, "Sources:", kAboutSources);
  WriteText(page, "Output:", kAboutOutput);
  Pairs statuses;
  for (const auto& [status, text] : ExitStatusTexts()) {
    statuses.emplace_back(std::to_string(status), text);
  }
  WritePairs(page, "Exit status:", statuses);
}

void WriteHelp(Page& page, const Language& language, const Command& command) {
  page.Title(fmt::format("Usage: {}{} [OPTION...]{}", language.program, command.name,
                         OperandsText(command, [](const std::string& name) { return name; })));
  page.Paragraph(1, command.summary + '.');
  Pairs operands;
  for (const OperandDescription& operand : command.operands) {
    operands.emplace_back(operand.name, operand.summary);
  }
  WritePairs(page, "Arguments:", operands);
  WritePairs(page, "Options:", OptionsOf(language, command));
  if (!command.details.empty()) {
    page.Heading("Details:");
    page.Paragraph(1, command.details);
  }
  if (!language.IsOfSession()) {
    page.Heading("Example:");
    page.Line(1, language.program + command.example);
  }
}

}  // namespace Zelk::Tool
