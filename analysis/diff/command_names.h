#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <unordered_map>

#include "analysis/diff/change.h"

namespace Zelk::Analysis::Diff {

/// Several commands of one version.
class Commands {
 public:
  void Add(ElementId command) { ids_.insert(command); }

  void Add(const Commands& others) {
    ids_.insert(others.ids_.begin(), others.ids_.end());
    more_ += others.more_;
  }

  /// Adds some that are not shown; `sum` is that of their numbers.
  void AddMore(std::uint64_t sum) { more_ += sum; }

  bool IsEmpty() const { return ids_.empty(); }

  /// Whether no others are shown.
  bool IsFull() const { return ids_.size() > kMostShown; }

  const std::set<ElementId>& Ids() const { return ids_; }

  std::uint64_t More() const { return more_; }

 private:
  static constexpr std::size_t kMostShown = 2;

  std::set<ElementId> ids_;
  std::uint64_t more_ = 0;
};

/// The names of the commands of a version.
class NamesOfCommands {
 public:
  explicit NamesOfCommands(const Model& cli) : cli_(cli) {}

  CommandNames Of(const Commands& commands);

  /// Stands for the name in fingerprints.
  std::uint64_t NumberOf(ElementId command) { return NameOf(command).number; }

  /// Adds the command to those that are shown, or only counts it if they are enough.
  void AddOrCount(Commands& commands, ElementId command);

 private:
  struct Name {
    /// In quotes.
    std::string shown;
    std::uint64_t number = 0;
  };

  const Name& NameOf(ElementId command);

  const Model& cli_;
  std::unordered_map<ElementId, Name> names_;
};

}  // namespace Zelk::Analysis::Diff
