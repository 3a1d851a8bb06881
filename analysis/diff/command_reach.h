#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "analysis/diff/change.h"
#include "analysis/diff/command_names.h"
#include "analysis/diff/fills.h"
#include "analysis/diff/pairs.h"
#include "analysis/diff/printed.h"
#include "analysis/diff/reading.h"
#include "analysis/workspace.h"

namespace Zelk::Analysis::Diff {

/// Commands that both versions have and that call the same operation: which of them a change of
/// Metamodel breaks though they are the same. What changed in a command itself is reported there.
class CommandReach {
 public:
  CommandReach(const Workspace& old_version, const Workspace& new_version)
      : old_(old_version),
        new_(new_version),
        models_{old_.ModelOf(Domain::kCli), new_.ModelOf(Domain::kCli)},
        metamodels_{old_.ModelOf(Domain::kMetamodel), new_.ModelOf(Domain::kMetamodel)},
        names_(models_.old_model) {}

  CommandReach(const CommandReach&) = delete;
  CommandReach& operator=(const CommandReach&) = delete;
  ~CommandReach() = default;

  CommandNames NamesOf(const Commands& commands) { return names_.Of(commands); }

  /// Those that name an element of the old version that is gone, or something in it.
  Commands UsingGone(Pair pair);

  /// Those that name the element of the old version: they call it, or an option or an output does.
  Commands Naming(ElementId old_id);

  /// Those that print a whole structure or an enumeration in the result or the field, if its type
  /// does not name it any more.
  Commands PrintingOther(Pair part);

  /// Those that print all fields of a structure, and what a change of the fields means for them.
  struct Readers {
    Commands broken;
    Commands endangered;
    /// Whether there may be others.
    bool is_exhausted = false;
  };

  /// Those of the structure of the old version. `meaning` is a member of Reading; without one, all
  /// of them are broken.
  const Readers& ReadersOf(ElementId old_structure, Class Reading::*meaning);

  /// Those with an option that could fill the parameter or field, or a field in it, and cannot now,
  /// or that now lack a required field of another structure.
  Commands Misfitting(ElementId old_part);

  /// Those that may call the operation without a parameter or a field of the new version that it
  /// needs.
  Commands Lacking(Pair owner, ElementId new_part);

 private:
  /// The same element in the new version, or kNoElement. The command must call the same operation.
  ElementId NewOf(ElementId old_id);
  void ReadParts(ElementId command);
  ElementId CommandOf(ElementId old_id) const;
  bool IsStillNamed(const Reference& reference);
  /// Commands, options and outputs that name the element of the old version in both versions.
  const std::vector<ElementId>& StillNaming(ElementId old_id);
  bool IsMisfit(ElementId option);
  void ReadFills();
  /// The definitions that the type of the old version names and that of the new version does not.
  std::vector<ElementId> NoLongerNamed(Pair part) const;
  /// The commands that print the result or the field of the old version.
  std::vector<ElementId> Showing(ElementId old_part);
  void ReadBuilders(Pair structure);
  /// The command in the old version, if both have it and call the same operation with it.
  ElementId OldOf(ElementId new_command);
  const PrintedWhole& Printed();
  Commands WithoutParameter(ElementId operation, ElementId parameter);
  Commands WithoutField(Pair structure, ElementId field);

  const Workspace& old_;
  const Workspace& new_;
  ModelPair models_;
  ModelPair metamodels_;
  NamesOfCommands names_;
  /// The parts of the commands in read_ that both versions have.
  std::unordered_map<ElementId, ElementId> parts_;
  std::unordered_set<ElementId> read_;
  std::unordered_map<ElementId, bool> misfits_;
  // What was asked about last.
  ElementId named_ = kNoElement;
  std::vector<ElementId> naming_;
  /// The sum of the numbers of the commands in naming_, if it is known.
  std::optional<std::uint64_t> naming_sum_;
  ElementId built_ = kNoElement;
  /// The commands of the old version that fill fields of the structure, with the instances.
  std::set<std::pair<ElementId, std::uint64_t>> builders_;
  /// By instances.
  std::unordered_map<std::uint64_t, ElementId> builder_of_;
  /// The sum of the numbers of the commands in builders_.
  std::uint64_t builders_sum_ = 0;
  std::optional<PrintedWhole> printed_;
  ElementId read_structure_ = kNoElement;
  Class Reading::*meaning_ = nullptr;
  Readers readers_;
  // Empty until they are asked for.
  bool has_fills_ = false;
  std::vector<FieldFill> old_fills_;
  std::vector<FieldFill> new_fills_;
  /// OptionsThatLackFields() in the new version.
  std::unordered_set<ElementId> lacking_;
};

}  // namespace Zelk::Analysis::Diff
