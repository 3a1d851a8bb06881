#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "host/host.h"
#include "language/arguments.h"
#include "language/exit_status.h"

// What the program can be asked to do.

namespace Zelk::Tool {

class Invocation;

/// What a word of the command line means.
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
  /// A kind of the domains, alone or after "DOMAIN:".
  kKind,
  /// The same, or a part of things such as "field".
  kOutlineKind,
  /// A name of the kind before it, or of a thing that it can be in.
  kName,
  /// An id of the kind before it.
  kId,
  /// The id of something that trees show.
  kTreeId,
  /// A part of a name that Host::UsageNames() lists.
  kUsageName,
  /// The id of a message of the library.
  kMessageId,
  /// The id of a loaded source, alone or after "DOMAIN:".
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

  Word word;

  /// One line of --help.
  std::string summary;

  /// A list takes the option any number of times.
  Target target;

  /// For Word::kChoice; empty for the outputs of the command.
  std::vector<std::string> choices = {};
};

struct OperandDescription {
  std::string name;
  Word word;
  bool required;
  std::string summary;

  /// A list takes all remaining words, so it must be the last operand.
  Target target;

  /// For Word::kChoice.
  std::vector<std::string> choices = {};

  bool TakesAll() const {
    return std::holds_alternative<std::vector<std::string> Arguments::*>(target);
  }
};

/// Where a command can be given.
enum class Scope {
  kEverywhere,
  kProgram,
  kSession,
};

/// One command. The parser, --help, completion and the manual page are made from these members.
struct Command {
  std::string name;

  /// One line of --help.
  std::string summary;

  /// What --help of the command says in addition. Each line is a paragraph, which is wrapped where
  /// it is shown; lines that begin with a blank belong together.
  std::string details = {};

  std::vector<OperandDescription> operands = {};

  /// Its own, in addition to those that all commands share.
  std::vector<OptionDescription> options = {};

  /// What --output may be.
  std::vector<std::string> outputs = {"text"};

  /// A command line that works in the root of the sources. docs/tour.md shows its output.
  std::string example = {};

  /// For a command with a Word::kKind.
  IdsOf ids_of = nullptr;

  /// Whether the ids of several things may follow each other.
  bool takes_several = false;

  /// Whether --source has a meaning for it. It is refused only where it seems to give an operand,
  /// since the alias of a shell may have it.
  bool takes_sources = true;

  /// How its sources are loaded outside of sessions.
  HostUse use = HostUse::kAnswers;

  Scope scope = Scope::kEverywhere;

  /// Whether a pager may show its output.
  bool is_paged = true;

  ExitStatus (*run)(Invocation& call) = nullptr;

  /// Whether an option that commands share has a meaning for this one.
  bool Takes(const OptionDescription& option) const;
};

/// What may stand on a command line: one of the commands, and options that all of them share.
struct Language {
  /// The word before the command in texts, with a blank after it; empty in a session.
  std::string program;

  std::vector<Command> commands;
  std::vector<OptionDescription> options;

  /// For scripts: no help or completion shows them, and their words, which follow "--", are not
  /// parsed.
  std::vector<Command> hidden = {};

  /// Whether it is that of a session.
  bool IsOfSession() const { return program.empty(); }

  /// Null for an unknown name.
  const Command* Find(const std::string& name) const;
};

}  // namespace Zelk::Tool
