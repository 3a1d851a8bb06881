#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "analysis/workspace.h"

// What options of commands fill.

namespace Zelk::Analysis::Diff {

/// An option fills a field of a structure.
struct FieldFill {
  ElementId structure;
  ElementId field;
  /// Stands for the command and for the place in what it sends. The same in both versions.
  std::uint64_t instance;
  ElementId command;
  ElementId option;
  /// Whether all command lines have the option.
  bool is_always;
};

/// Whether all command lines have the option. A generic that is not known may require it.
bool IsAlwaysGiven(const Model& cli, ElementId option);

/// Those of the commands that are answered, by structures.
std::vector<FieldFill> FillsOf(const Workspace& version);

/// A version, and its FillsOf().
struct Fills {
  const Workspace& version;
  const std::vector<FieldFill>& all;
};

/// The options of the old version that fill a field of a structure, if there is now another
/// structure in its place, and the command filled the required fields of the old one only.
std::unordered_set<ElementId> OptionsThatLackFields(const Fills& before, const Fills& after);

}  // namespace Zelk::Analysis::Diff
