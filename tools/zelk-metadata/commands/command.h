#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

#include "arguments.h"
#include "exit_status.h"
#include "render/terminal.h"

// What the program can be asked to do. The description of a command is all that is known of it: the
// parser of the command line and --help are made from it, and so can be what else helps people
// type.

namespace Zelk::Tool {

/// Where a command reads, answers and complains.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  Terminal out_terminal = {};
  Terminal err_terminal = {};
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
};

/// The member of the arguments that a word fills.
using Target = std::variant<bool Arguments::*, std::size_t Arguments::*, std::string Arguments::*,
                            std::vector<std::string> Arguments::*>;

struct OptionDescription {
  /// Without the dashes.
  std::string name;

  /// What its value is called in texts; empty for a flag.
  std::string value_name;

  Word word;

  /// For Word::kChoice; empty where every command has choices of its own.
  std::vector<std::string> choices;

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
};

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
};

/// One command of the program, a row of the table of commands.
struct Command {
  CommandDescription description;
  ExitStatus (*run)(const Arguments& arguments, const Streams& streams);
};

}  // namespace Zelk::Tool
