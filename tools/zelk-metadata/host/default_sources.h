#pragma once

#include <string>
#include <vector>

namespace Zelk::Tool {

/// The sources of a user who gives none.
struct DefaultSources {
  /// As --source takes them.
  std::vector<std::string> sources;

  /// What is wrong with the settings; no source is taken from them then.
  std::string failure;
};

/// The value of ZELK_METADATA_PATH, which separates sources by colons; or else, if it is not set or
/// is empty, those under the key "sources" of the project file.
DefaultSources FindDefaultSources();

/// These and, after them, the sources that are given. A default that is given, too, is taken once.
std::vector<std::string> WithDefaults(const std::vector<std::string>& defaults,
                                      const std::vector<std::string>& given);

}  // namespace Zelk::Tool
