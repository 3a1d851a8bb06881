#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/diff/change.h"
#include "analysis/diff/cli_lines.h"

// What compares the parts of a command. The table of kinds is in cli_kinds.cc.

namespace Zelk::Analysis::Diff {

/// A command that both versions have.
class CommandPair {
 public:
  CommandPair(Changes& changes, Pair command) : changes_(changes), command_(command) {}

  Pair Command() const { return command_; }

  ModelPair Models() const { return changes_.Models(Domain::kCli); }

  /// Adds a change with the verdicts of CliVerdicts().
  void Add(std::string_view id, Pair pair, Class verdict, Details details);

  /// See CompareTexts(); for the key "description".
  void CompareDescriptions(std::string_view id, Pair pair);

  /// See CommandLines. They are made when the first one is wanted.
  std::string Witness(const std::string& option, std::size_t times, const std::string& about = {});

  bool KeepsValues(const std::string& option) { return Lines().KeepsValues(option); }

 private:
  const CommandLines& Lines();

  Changes& changes_;
  Pair command_;
  std::unique_ptr<CommandLines> lines_;
};

/// What a change means that command lines notice, and others who ask for the command as well.
Verdicts CliVerdicts(Class verdict);

/// Adds a change of a text for people, if it is one.
void CompareTexts(Changes& changes, std::string_view id, Pair pair, std::string_view before,
                  std::string_view after);

// cli_options.cc
void CompareOptions(CommandPair& command);

// cli_outputs.cc
void CompareOutputs(CommandPair& command);

// cli_namespaces.cc
void CompareNamespaces(Changes& changes);

// reachable_outputs.cc
void CompareReachableOutputs(Changes& changes);

/// What a command calls, such as "start of c.p.s".
std::string CallOf(const Model& model, ElementId command);

/// The value under a key of the element's node, or kNoNode.
NodeId MemberOf(const Model& model, ElementId id, const char* key);

}  // namespace Zelk::Analysis::Diff
