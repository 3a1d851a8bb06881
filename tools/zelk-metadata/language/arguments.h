#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace Zelk::Tool {

struct Command;
struct Language;

/// What the user asked for; which members are set depends on the command.
struct Arguments {
  /// The values of --source, as given.
  std::vector<std::string> sources;

  /// Whether only these are loaded.
  bool no_default_sources = false;

  /// The value of --output, or empty.
  std::string output;

  /// Whether JSON is wanted, by --json or by --output json.
  bool json = false;

  /// Whether only problems are to be shown.
  bool quiet = false;

  /// The value of --color, or empty.
  std::string color;

  bool no_pager = false;

  std::string kind;
  std::vector<std::string> ids;
  std::vector<std::string> files;
  std::string text;

  /// Of `schema`.
  bool accepts = false;
  std::string draft;

  /// Of `docs`.
  std::string output_file;

  /// Of `search` and `get`.
  std::vector<std::string> kinds;
  bool is_regex = false;
  bool is_expanded = false;
  std::size_t limit = std::numeric_limits<std::size_t>::max();

  /// Of `lint`.
  std::vector<std::string> groups;
  std::vector<std::string> rules;
  std::vector<std::string> except;
  std::string fail_on;
  std::string baseline;
  std::string new_baseline;
  std::string config;
  bool show_suppressed = false;
  bool list_rules = false;

  /// Of `diff`, which also has a configuration and what fails.
  std::string old_version;
  std::string new_version;
  std::vector<std::string> audiences;
  std::vector<std::string> accept;
  std::string new_accept;
  bool bump = false;
  bool list_kinds = false;

  std::size_t depth = std::numeric_limits<std::size_t>::max();
};

/// Either a command with its arguments, which is `help` for --help, or, without one, an error or
/// the text for --version.
struct ParsedArguments {
  const Command* command = nullptr;
  Arguments arguments;
  std::string error;
  std::string version;
};

/// The values of --color.
const std::vector<std::string>& Colors();

/// The complaint about an unknown command, with similar ones.
std::string UnknownCommand(const Language& language, const std::string& word);

/// The complaint about the first of the words that is not known; empty if all are.
std::string UnknownChoice(const char* what, const std::vector<std::string>& words,
                          const std::vector<std::string>& known);

/// The complaint about the output of an option that lists something; empty if it is text or JSON.
std::string WrongListOutput(const char* option, const std::string& output);

/// Options may stand before and after the command's name. Whether a kind is known, and how many
/// ids it takes, is not checked here. The command is one of the language.
ParsedArguments ParseArguments(const std::vector<std::string>& args, const Language& language);

}  // namespace Zelk::Tool
