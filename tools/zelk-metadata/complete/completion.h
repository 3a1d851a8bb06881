#pragma once

#include <functional>
#include <string>
#include <vector>

#include "language/command.h"

namespace Zelk::Tool::Complete {

/// A word that the user may want, and what it means in one line or nothing.
struct Choice {
  std::string word;
  std::string summary;
};

/// What can be typed next.
struct Completion {
  enum class Of {
    /// The choices, and nothing else.
    kWords,
    /// A path, which shells complete best.
    kPath,
    /// A path, after "ID=" if the user has typed that.
    kSource,
  };

  Of of = Of::kWords;

  /// Begin with what is typed.
  std::vector<Choice> choices;
};

/// The host that has loaded the sources that these arguments give. Asked only for names that are in
/// sources.
using HostOf = std::function<const Host&(const Arguments& arguments)>;

/// The completions of the last word; the others precede it on the command line. The words may be
/// anything.
Completion CompleteWord(const std::vector<std::string>& words, const Language& language,
                        const HostOf& host_of);

}  // namespace Zelk::Tool::Complete
