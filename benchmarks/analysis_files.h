#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "analysis/workspace.h"
#include "domain_id.h"

namespace Zelk::Benchmarks {

/// Reads the files and lints them together by the rules that run by default. Returns how many
/// findings there are.
std::size_t LintFiles(DomainId domain, const std::vector<std::string>& paths);

/// How the second of two versions differs from the first one.
enum class Edit {
  /// In one text of each file.
  kOne,
  /// In the blanks of each value, so that everything must be looked at.
  kBlanks,
  /// In each text for people, so that there are as many changes as can be.
  kTexts,
};

/// Files, and an edited version of them.
class Versions {
 public:
  /// Reads them.
  Versions(DomainId domain, const std::vector<std::string>& paths, Edit edit);

  /// Returns how many changes there are.
  std::size_t Compare() const;

 private:
  Analysis::Workspace old_version_;
  Analysis::Workspace new_version_;
};

}  // namespace Zelk::Benchmarks
