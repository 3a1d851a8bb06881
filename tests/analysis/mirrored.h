#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "analysis/diffed.h"

// What changed, so that it can be compared with what changed in the other direction.

namespace Zelk::Testing {

inline Analysis::Diff::Action Opposite(Analysis::Diff::Action action) {
  using Analysis::Diff::Action;
  switch (action) {
    case Action::kAdded:
      return Action::kRemoved;
    case Action::kRemoved:
      return Action::kAdded;
    case Action::kLoosened:
      return Action::kTightened;
    case Action::kTightened:
      return Action::kLoosened;
    case Action::kChanged:
      break;
  }
  return Action::kChanged;
}

/// What changed, how, and from which value to which one; how many times.
using Tally =
    std::map<std::tuple<std::string, Analysis::Diff::Action, std::string, std::string>, int>;

inline Tally TallyOf(const Analysis::Diff::Result& result, bool is_mirrored) {
  Tally tally;
  for (const Change& change : result.changes) {
    const auto& [about, action] = std::tie(change.kind->about, change.kind->action);
    const auto& details = change.details;
    if (is_mirrored) {
      ++tally[{about, Opposite(action), details.new_value, details.old_value}];
    } else {
      ++tally[{about, action, details.old_value, details.new_value}];
    }
  }
  return tally;
}

inline Tally TallyOf(const std::vector<std::string>& old_texts,
                     const std::vector<std::string>& new_texts, bool is_mirrored) {
  Tally tally;
  LookAtChanges(old_texts, new_texts, [&](const Analysis::Diff::Result& result) {
    tally = TallyOf(result, is_mirrored);
  });
  return tally;
}

}  // namespace Zelk::Testing
