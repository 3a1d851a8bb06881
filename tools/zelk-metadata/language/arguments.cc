#include "language/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <map>
#include <type_traits>
#include <variant>

#include "analysis/near.h"
#include "language/command.h"
#include "render/page.h"

namespace Zelk::Tool {
namespace {

// The parser reads an operand such as [a,b] as a list of two. A byte in front, removed after
// parsing, prevents that.
constexpr char kShield = '\x01';

std::string Shielded(const std::string& arg) {
  const bool needs_shield = !arg.empty() && (arg.front() == '[' || arg.front() == kShield);
  return needs_shield ? kShield + arg : arg;
}

void Unshield(std::string& arg) {
  if (!arg.empty() && arg.front() == kShield) arg.erase(0, 1);
}

void Unshield(Arguments& arguments) {
  for (auto* word : {&arguments.kind, &arguments.text, &arguments.output, &arguments.color}) {
    Unshield(*word);
  }
  for (auto* list : {&arguments.sources, &arguments.ids, &arguments.files, &arguments.kinds}) {
    for (std::string& arg : *list) Unshield(arg);
  }
}

std::string NumberComplaint(const std::string& shielded) {
  std::string text = shielded;
  Unshield(text);
  // As many digits as always fit.
  const bool is_number = !text.empty() && text.size() <= 18 &&
                         text.find_first_not_of("0123456789") == std::string::npos;
  return is_number ? std::string() : "'" + text + "' is not a whole number, or is too large";
}

std::string SourceComplaint(const std::string& text) {
  const bool has_path = !ParseSourceArgument(text).path.empty();
  return has_path ? std::string() : "'" + text + "' has no path";
}

/// The check of a word that means this; empty if any word will do.
std::string (*CheckOf(Word word))(const std::string&) {
  if (word == Word::kNumber) return NumberComplaint;
  return word == Word::kSource ? SourceComplaint : nullptr;
}

/// What becomes of an option with one value that is given again.
enum class Repeated : std::uint8_t { kLastCounts, kRefused };

void Declare(CLI::App& app, const OptionDescription& option, Repeated repeated,
             Arguments& arguments) {
  std::visit(
      [&](auto member) {
        auto& target = arguments.*member;
        const std::string name = "--" + option.name;
        if constexpr (std::is_same_v<decltype(target), bool&>) {
          app.add_flag(name, target, option.summary);
        } else {
          CLI::Option* const added = app.add_option(name, target, option.summary);
          added->allow_extra_args(false)->type_name(option.value_name);
          if constexpr (std::is_same_v<decltype(target), std::string&>) {
            if (repeated == Repeated::kLastCounts) added->take_last();
          }
          if (const auto check = CheckOf(option.word)) added->check(check);
        }
      },
      option.target);
}

void Declare(CLI::App& app, const OperandDescription& operand, Arguments& arguments) {
  std::visit(
      [&](auto member) {
        if constexpr (!std::is_same_v<decltype(member), bool Arguments::*>) {
          CLI::Option* const added =
              app.add_option(operand.name, arguments.*member, operand.summary);
          added->required(operand.required)->type_name("");
          if (const auto check = CheckOf(operand.word)) added->check(check);
        }
      },
      operand.target);
}

void Declare(CLI::App& app, const Command& command, Arguments& arguments) {
  CLI::App* const subcommand = app.add_subcommand(command.name, command.summary);
  subcommand->fallthrough();
  for (const auto& operand : command.operands) Declare(*subcommand, operand, arguments);
  for (const auto& option : command.options) {
    Declare(*subcommand, option, Repeated::kRefused, arguments);
  }
}

void Declare(CLI::App& app, const Language& language, Arguments& arguments) {
  // An alias of a shell may have such an option already.
  for (const auto& option : language.options) {
    Declare(app, option, Repeated::kLastCounts, arguments);
  }
  // Unknown words are left over, so that we print the error. At most one command, so that an id may
  // have the name of another command.
  app.allow_extras();
  app.require_subcommand(0, 1);
  for (const Command& command : language.commands) Declare(app, command, arguments);
}

/// What to type for the help of the command or, without one, of all.
std::string Help(const Language& language, const std::string& command = "") {
  const std::string blank = command.empty() ? "" : " ";
  return language.IsOfSession() ? "help" + blank + command : command + blank + "--help";
}

std::string LeftOver(const CLI::App& app, const Language& language, const std::string& word) {
  const bool is_option = word.size() > 1 && word.front() == '-';
  if (is_option) return fmt::format("unknown option '{}'; try {}", word, Help(language));
  if (app.get_subcommands().empty()) {
    return fmt::format("{}; try {}", UnknownCommand(language, word), Help(language));
  }
  const std::string name = app.get_subcommands().front()->get_name();
  return fmt::format("unexpected argument '{}'; try {}", word, Help(language, name));
}

std::string Complaint(const CLI::App& app, const Language& language) {
  std::vector<std::string> left_over = app.remaining(true);
  left_over.erase(std::remove(left_over.begin(), left_over.end(), "--"), left_over.end());
  if (!left_over.empty()) {
    Unshield(left_over.front());
    return LeftOver(app, language, left_over.front());
  }
  return app.get_subcommands().empty() ? "a command is missing; try " + Help(language) : "";
}

/// What the parser reports, in one sentence.
std::string Complaint(const CLI::ParseError& error, const CLI::App& app, const Language& language,
                      const std::vector<std::string>& args) {
  // What is left over explains more: because of it, the rest seems to be missing.
  if (!app.remaining(true).empty()) return Complaint(app, language);
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) == nullptr) return error.what();
  const std::string text = error.what();
  const std::string option = text.substr(0, text.find(':'));
  return fmt::format("option '{}' {}", option,
                     args.back() == option ? "needs a value" : "is given more than once");
}

/// More are not listed in a complaint.
constexpr std::size_t kMostChoices = 10;

bool Contains(const std::vector<std::string>& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Whether each option takes a value.
std::map<std::string, bool> OptionsOf(const Language& language) {
  std::map<std::string, bool> takes_value{{"--help", false}, {"--version", false}};
  const auto add = [&](const std::vector<OptionDescription>& options) {
    for (const auto& option : options) takes_value["--" + option.name] = option.word != Word::kNone;
  };
  add(language.options);
  for (const Command& command : language.commands) add(command.options);
  return takes_value;
}

/// The complaint about a flag such as --json=x, which the parser would take for a truth value.
std::string FlagWithValue(const std::vector<std::string>& args, const Language& language) {
  const std::map<std::string, bool> takes_value = OptionsOf(language);
  for (std::size_t i = 0; i < args.size() && args[i] != "--"; ++i) {
    const std::size_t equals = args[i].find('=');
    const auto option = takes_value.find(args[i].substr(0, equals));
    if (option == takes_value.end()) continue;
    if (equals == std::string::npos) {
      // The next word is the value.
      if (option->second) ++i;
    } else if (!option->second) {
      return fmt::format("option '{}' takes no value", option->first);
    }
  }
  return "";
}

/// Makes --output and --json agree. Returns what is wrong with them.
std::string Reconcile(Arguments& arguments, const Command& command) {
  if (arguments.json && !arguments.output.empty() && arguments.output != "json") {
    return fmt::format("--json and --output {} contradict each other", arguments.output);
  }
  const std::string output = arguments.json ? "json" : arguments.output;
  arguments.json = output == "json";
  if (output.empty() || Contains(command.outputs, output)) return "";
  return fmt::format("--output of {} is one of {}, not '{}'", command.name,
                     fmt::join(command.outputs, ", "), output);
}

std::string WrongColor(const std::string& color) {
  if (color.empty() || Contains(Colors(), color)) return "";
  return fmt::format("--color is one of {}, not '{}'", fmt::join(Colors(), ", "), color);
}

const Command* FindIn(const std::vector<Command>& commands, const std::string& name) {
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [&](const Command& command) { return command.name == name; });
  return found == commands.end() ? nullptr : &*found;
}

}  // namespace

const std::vector<std::string>& Colors() {
  static const std::vector<std::string> colors{"auto", "always", "never"};
  return colors;
}

std::string UnknownCommand(const Language& language, const std::string& word) {
  std::vector<std::string> known;
  for (const Command& command : language.commands) known.push_back(command.name);
  return fmt::format("unknown command '{}'{}", word, Analysis::Suggestion(word, known));
}

bool Command::Takes(const OptionDescription& option) const {
  const bool is_of_sources = option.name == "source" || option.name == "no-default-sources";
  if (is_of_sources) return takes_sources;
  return option.name != "json" || Contains(outputs, option.name);
}

std::string UnknownChoice(const char* what, const std::vector<std::string>& words,
                          const std::vector<std::string>& known) {
  for (const std::string& word : words) {
    if (Contains(known, word)) continue;
    const std::string suggestion = Analysis::Suggestion(word, known);
    if (!suggestion.empty() || known.size() > kMostChoices) {
      return fmt::format("unknown {} '{}'{}", what, word, suggestion);
    }
    return fmt::format("unknown {} '{}'; it is one of {}", what, word, fmt::join(known, ", "));
  }
  return "";
}

std::string WrongListOutput(const char* option, const std::string& output) {
  const bool is_known = output.empty() || output == "text" || output == "json";
  return is_known ? "" : fmt::format("--{} prints text or JSON, not {}", option, output);
}

const Command* Language::Find(const std::string& name) const {
  return FindIn(commands, name);
}

ParsedArguments ParseArguments(const std::vector<std::string>& args, const Language& language) {
  ParsedArguments parsed;
  const bool may_be_hidden = args.size() > 1 && args[1] == "--";
  parsed.command = may_be_hidden ? FindIn(language.hidden, args[0]) : nullptr;
  if (parsed.command != nullptr) {
    parsed.arguments.ids.assign(args.begin() + 2, args.end());
    return parsed;
  }
  parsed.error = FlagWithValue(args, language);
  if (!parsed.error.empty()) return parsed;
  CLI::App app;
  bool wants_version = false;
  app.add_flag("--version", wants_version);
  Declare(app, language, parsed.arguments);
  // The parser takes its arguments from the end.
  std::vector<std::string> reversed(args.rbegin(), args.rend());
  std::transform(reversed.begin(), reversed.end(), reversed.begin(), Shielded);
  try {
    app.parse(std::move(reversed));
  } catch (const CLI::CallForHelp&) {
    parsed.command = language.Find("help");
    const auto chosen = app.get_subcommands();
    parsed.arguments.text = chosen.empty() ? "" : chosen.front()->get_name();
    return parsed;
  } catch (const CLI::ParseError& error) {
    parsed.error = Complaint(error, app, language, args);
    return parsed;
  }
  if (wants_version && args.size() == 1) {
    parsed.version = std::string(Render::kProgramName) + " " ZELK_METADATA_VERSION;
    return parsed;
  }
  parsed.error = wants_version ? "--version is given alone" : Complaint(app, language);
  if (!parsed.error.empty()) return parsed;
  Unshield(parsed.arguments);
  const Command& chosen = *language.Find(app.get_subcommands().front()->get_name());
  parsed.error = Reconcile(parsed.arguments, chosen);
  if (parsed.error.empty()) parsed.error = WrongColor(parsed.arguments.color);
  if (parsed.error.empty()) parsed.command = &chosen;
  return parsed;
}

}  // namespace Zelk::Tool
