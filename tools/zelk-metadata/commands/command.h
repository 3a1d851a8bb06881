#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "arguments.h"
#include "exit_status.h"
#include "host/domain.h"
#include "render/terminal.h"

// What the program can be asked to do. The description of a command is all that is known of it: the
// parser of the command line, --help, the completion of words and the manual page are made from it.

namespace Zelk::Tool {

class Host;

/// Where a command reads, answers and complains.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  Terminal out_terminal = {};
  Terminal err_terminal = {};

  /// The sources of the session that the command is given in; null outside of sessions, where
  /// each command loads its own.
  Host* session = nullptr;
};

/// What a word of the command line stands for.
enum class Word {
  /// Nothing: a flag, which no word follows.
  kNone,
  kText,
  kNumber,
  /// One of the choices.
  kChoice,
  kPath,
  /// "[ID=]PATH", where "-" is standard input.
  kSource,
  /// A kind of the domains, alone or behind "DOMAIN:".
  kKind,
  /// An id of the kind before it.
  kId,
  /// A part of the name of a namespace or command of the domain CLI.
  kCliName,
  /// The id of a message of the library.
  kMessageId,
  /// The id of a source that is loaded, alone or behind "DOMAIN:".
  kSourceId,
  /// The name of a command.
  kCommand,
};

/// The member of the arguments that a word fills.
using Target = std::variant<bool Arguments::*, std::size_t Arguments::*, std::string Arguments::*,
                            std::vector<std::string> Arguments::*>;

struct OptionDescription {
  /// Without the dashes.
  std::string name;

  /// What its value is called in texts; empty for a flag.
  std::string value_name;

  /// The choices of Word::kChoice are the outputs of the command.
  Word word;

  /// One line of --help.
  std::string summary;

  /// A list takes the option any number of times.
  Target target;
};

struct OperandDescription {
  std::string name;
  Word word;
  bool required;
  std::string summary;

  /// A list takes all words that are left, which the last operand only may do.
  Target target;

  /// For Word::kChoice.
  std::vector<std::string> choices = {};
};

/// Whether it takes all words that are left.
bool TakesAll(const OperandDescription& operand);

struct CommandDescription {
  std::string name;

  /// One line of --help.
  std::string summary;

  /// What --help of the command says in addition; lines of at most 100 characters.
  std::string details;

  std::vector<OperandDescription> operands;

  /// Its own, beside those that all commands share.
  std::vector<OptionDescription> options;

  /// What --output may be.
  std::vector<std::string> outputs;

  /// A command line that works in the root of the sources. Its output is shown in README.md.
  std::string example;

  /// For a command with a Word::kKind: how many ids it takes for the kind, or nothing for a kind
  /// that it cannot be asked.
  std::optional<IdCount> (*ids_of)(const Kind& kind) = nullptr;

  /// Whether the ids of several things may follow each other.
  bool takes_several = false;
};

/// One command of the program, a row of the table of commands.
struct Command {
  CommandDescription description;
  ExitStatus (*run)(const Arguments& arguments, const Streams& streams);
};

/// What may stand on a command line: one of the commands, and options that all of them share.
struct Language {
  /// The word before the command in texts, with a blank behind it; empty in a session.
  std::string program;

  std::vector<Command> commands;
  std::vector<OptionDescription> options;
};

/// Null for an unknown name.
const Command* FindCommand(const Language& language, const std::string& name);

}  // namespace Zelk::Tool
