#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "analysis/lint/lint.h"

// Lints texts, and writes what is found as lines.

namespace Zelk::Testing {

/// The names of the files are "a", "b" and so on, as are the ids of their sources.
inline std::vector<Analysis::Lint::File> LintFiles(const std::vector<std::string>& texts) {
  std::vector<Analysis::Lint::File> files;
  for (const std::string& text : texts) {
    const auto document = std::make_shared<const Analysis::Document>(text);
    const std::string name(1, static_cast<char>('a' + files.size()));
    for (const Analysis::Domain domain : Analysis::Lint::kDomains) {
      const char* const key = Analysis::FormatOf(domain).root_key;
      if (document->Find(Analysis::kRootNode, key) == Analysis::kNoNode) continue;
      files.push_back({name, domain, {name, document}});
    }
  }
  return files;
}

/// What the rules find: "SEVERITY PATH: MESSAGE", then " (HINT)" if there is one. The path is
/// without what it is in.
inline std::vector<std::string> Found(const std::vector<const Analysis::Lint::Rule*>& rules,
                                      const std::vector<std::string>& texts,
                                      Analysis::Lint::Settings settings = {}) {
  const Analysis::Lint::Workspace workspace(LintFiles(texts), std::move(settings));
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
