#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/diff/compare.h"
#include "analysis/files.h"

// Compares texts, and writes what changed as lines.

namespace Zelk::Testing {

using Analysis::Diff::Assumptions;
using Analysis::Diff::Change;

/// Calls `look(result)` with what changed.
template <typename Look>
void LookAtChanges(const std::vector<std::string>& old_texts,
                   const std::vector<std::string>& new_texts, const Look& look,
                   const Assumptions& assumptions = {}) {
  const Analysis::Workspace old_version(FilesOf(old_texts));
  const Analysis::Workspace new_version(FilesOf(new_texts));
  look(Analysis::Diff::Compare(old_version, new_version, assumptions));
}

/// The verdicts as letters, in the order of the audiences: '-' for not concerned, 't' for
/// documentation, 'c', 'D' and 'B' for the others.
inline std::string Letters(const Analysis::Diff::Verdicts& verdicts) {
  std::string letters;
  for (const Analysis::Diff::Class verdict : verdicts) {
    letters += std::string_view("-tcDB")[static_cast<std::size_t>(verdict)];
  }
  return letters;
}

/// What changed: "LETTERS ID PATH: MESSAGE", then " (HINT)" if there is one. The path is without
/// what it is in.
inline std::vector<std::string> Changed(const std::vector<std::string>& old_texts,
                                        const std::vector<std::string>& new_texts,
                                        const Assumptions& assumptions = {}) {
  std::vector<std::string> lines;
  LookAtChanges(
      old_texts, new_texts,
      [&](const Analysis::Diff::Result& result) {
        for (const Change& change : result.changes) {
          const std::string& path = change.element;
          std::string line = Letters(change.verdicts) + " " + change.kind->id + " " +
                             path.substr(path.rfind('/') + 1) + ": " + change.details.message;
          if (!change.details.hint.empty()) line += " (" + change.details.hint + ")";
          lines.push_back(line);
        }
      },
      assumptions);
  return lines;
}

}  // namespace Zelk::Testing
