#pragma once

#include <optional>
#include <string>

#include "language/command.h"

// What the commands that ask one kind have in common.

namespace Zelk::Tool {

/// How many ids a query of the kind takes, if the kind has it.
template <auto kQuery>
std::optional<IdCount> IdsOfQuery(const Kind& kind) {
  if (!(kind.*kQuery).call) return std::nullopt;
  return (kind.*kQuery).ids;
}

OperandDescription KindOperand(bool required = true);
OperandDescription IdsOperand();
OperandDescription SourceIdsOperand(bool required);

/// Help: the ids of the files of a folder.
constexpr char kAboutFolders[] =
    "Each file of a folder is a source. Its id is its path below the folder without extension, "
    "after ID/ if the folder was given an ID.\n";

/// --output of commands that show tables and pages.
std::vector<std::string> TableOutputs();

/// Help: the kinds that a command can be asked for, with their ids, one a line.
std::string KindsText(IdsOf ids_of);

/// The names of these kinds, each once.
Names KindNames(IdsOf ids_of);

}  // namespace Zelk::Tool
