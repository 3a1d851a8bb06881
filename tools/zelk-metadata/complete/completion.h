#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/command.h"
#include "host/host.h"

namespace Zelk::Tool {

/// A word that may stand where the user types, and what it means in one line or nothing.
struct Choice {
  std::string word;
  std::string summary;
};

/// What can be typed next.
struct Completion {
  enum class Of {
    /// The choices, and nothing else.
    kWords,
    /// A path, which shells complete better than anybody else.
    kPath,
    /// A path, behind "ID=" if the user has typed that.
    kSource,
  };

  Of of = Of::kWords;

  /// Begin with what is typed.
  std::vector<Choice> choices;
};

/// The host that has loaded these values of --source. Asked only for names that are in sources.
using HostOf = std::function<const Host&(const std::vector<std::string>& sources)>;

/// What the last of the words can become; the others stand before it on the command line. Words
/// are the user's, so nothing about them is certain.
Completion Complete(const std::vector<std::string>& words, const Language& language,
                    const HostOf& host_of);

}  // namespace Zelk::Tool
