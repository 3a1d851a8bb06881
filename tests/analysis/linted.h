#pragma once

#include <string>
#include <utility>
#include <vector>

#include "analysis/files.h"
#include "analysis/lint/lint.h"

// Lints texts, and writes what is found as lines.

namespace Zelk::Testing {

/// What the rules find: "SEVERITY PATH: MESSAGE", then " (HINT)" if there is one. The path is
/// without what it is in.
inline std::vector<std::string> Found(const std::vector<const Analysis::Lint::Rule*>& rules,
                                      const std::vector<std::string>& texts,
                                      Analysis::Lint::Settings settings = {}) {
  const Analysis::Lint::Workspace workspace(FilesOf(texts), std::move(settings));
  std::vector<std::string> lines;
  for (const auto& finding : Analysis::Lint::Lint(workspace, rules).findings) {
    const std::string path = PathOf(workspace, finding.place);
    std::string line = Analysis::Lint::Word(finding.severity);
    line += " " + path.substr(path.rfind('/') + 1) + ": " + finding.remark.message;
    if (!finding.remark.hint.empty()) line += " (" + finding.remark.hint + ")";
    lines.push_back(line);
  }
  return lines;
}

inline std::vector<std::string> Found(const char* rule, const std::vector<std::string>& texts,
                                      Analysis::Lint::Settings settings = {}) {
  return Found({Analysis::Lint::FindRule(rule)}, texts, std::move(settings));
}

}  // namespace Zelk::Testing
