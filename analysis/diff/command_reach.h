#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "analysis/diff/pairs.h"
#include "analysis/workspace.h"

namespace Zelk::Analysis::Diff {

/// An option fills a field of a structure.
struct FieldFill {
  ElementId structure;
  ElementId field;
  /// Stands for the command and for the place in what it sends. The same in both versions.
  std::uint64_t instance;
  ElementId command;
  /// Whether all command lines have the option.
  bool is_always;
};

/// Commands that both versions have and that call the same operation: which of them a change of
/// Metamodel breaks though they are the same. What changed in a command itself is reported there.
class CommandReach {
 public:
  CommandReach(const Workspace& old_version, const Workspace& new_version)
      : old_(old_version),
        new_(new_version),
        models_{old_.ModelOf(Domain::kCli), new_.ModelOf(Domain::kCli)},
        metamodels_{old_.ModelOf(Domain::kMetamodel), new_.ModelOf(Domain::kMetamodel)} {}

  CommandReach(const CommandReach&) = delete;
  CommandReach& operator=(const CommandReach&) = delete;
  ~CommandReach() = default;

  /// Several commands of the old version. Callers show so few that no more are looked for.
  class Commands {
   public:
    void Add(ElementId command) { ids_.insert(command); }

    void Add(const Commands& others) { ids_.insert(others.ids_.begin(), others.ids_.end()); }

    bool IsFull() const { return ids_.size() > kMostShown; }

    const std::set<ElementId>& Ids() const { return ids_; }

    static constexpr std::size_t kMostShown = 2;

   private:
    std::set<ElementId> ids_;
  };

  /// "the command 'a.b'", "the commands 'a', 'b' and others", or an empty text.
  std::string Text(const Commands& commands) const;

  /// Those that name an element of the old version that is gone, or something in it.
  Commands UsingGone(Pair pair);

  /// Those that name the element of the old version: they call it, or an option or an output does.
  Commands Naming(ElementId old_id);

  /// Those that show the structure that the operation returned by a name that it has no longer.
  Commands Showing(ElementId old_result, ElementId new_result);

  /// Those with an option that could fill the parameter or field, or a field in it, and cannot now.
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
  void ReadBuilders(Pair structure);
  Commands WithoutParameter(ElementId operation, ElementId parameter);
  Commands WithoutField(Pair structure, ElementId field);

  const Workspace& old_;
  const Workspace& new_;
  ModelPair models_;
  ModelPair metamodels_;
  /// The parts of the commands in read_ that both versions have.
  std::unordered_map<ElementId, ElementId> parts_;
  std::unordered_set<ElementId> read_;
  std::unordered_map<ElementId, bool> misfits_;
  // What was asked about last.
  ElementId named_ = kNoElement;
  std::vector<ElementId> naming_;
  ElementId built_ = kNoElement;
  /// The commands of the old version that fill fields of the structure, with the instances.
  std::set<std::pair<ElementId, std::uint64_t>> builders_;
  // Empty until they are asked for.
  bool has_fills_ = false;
  std::vector<FieldFill> old_fills_;
  std::vector<FieldFill> new_fills_;
};

}  // namespace Zelk::Analysis::Diff
