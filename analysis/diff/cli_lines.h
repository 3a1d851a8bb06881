#pragma once

#include <optional>
#include <string>

#include "analysis/command_line.h"

namespace Zelk::Analysis::Diff {

/// Builds command lines that the old version accepts and that the new version refuses or reads
/// otherwise.
class CommandLines {
 public:
  CommandLines(const Workspace& old_version, const Workspace& new_version, ElementId command);

  /// The shortest line that has the option, typed so, `times` times, and what the new version does
  /// with the option `about`, or with the command if `about` is empty. Empty if that is the same as
  /// before, or if it is not certain.
  std::string Witness(const std::string& option, std::size_t times, const std::string& about) const;

  /// Whether the option takes values of an enumeration in both versions, and still all of them.
  bool KeepsValues(const std::string& option) const;

 private:
  CommandForm old_;
  /// What the same words call in the new version.
  std::optional<CommandForm> new_;
  bool is_certain_;
};

}  // namespace Zelk::Analysis::Diff
