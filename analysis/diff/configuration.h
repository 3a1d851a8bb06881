#pragma once

#include <array>
#include <string>
#include <vector>

#include "analysis/diff/assumptions.h"
#include "analysis/settings_reader.h"

// What projects choose, under the key "diff" of their own file:
//
//   {"diff": {
//     "parameters": "positional",
//     "deprecated": ["Deprecated", "Obsolete"],
//     "annotations": {"Since": "documentation"}}}

namespace Zelk::Analysis::Diff {

/// An assumption that is one of two words, the first one unless a project chooses.
struct Choice {
  const char* key;
  std::array<std::string, 2> words;
  bool (*is_second)(const Assumptions& assumptions);
  void (*set_second)(Assumptions& assumptions);

  const std::string& WordOf(const Assumptions& assumptions) const {
    return words.at(is_second(assumptions) ? 1 : 0);
  }
};

const std::vector<Choice>& Choices();

Assumptions ReadAssumptions(const Document& document, SettingsProblems& problems);

}  // namespace Zelk::Analysis::Diff
