#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "commands/table.h"
#include "complete/scripts.h"
#include "host/near.h"
#include "render/page.h"

namespace Zelk::Tool {

/// The script for a shell.
ExitStatus RunCompletion(const Arguments& arguments, const Streams& streams) {
  const std::string script = CompletionScript(arguments.text);
  if (script.empty()) {
    const auto shells = CompletedShells();
    PrintError(streams.err,
               fmt::format("there is no completion for '{}'; the shells are {}{}", arguments.text,
                           fmt::join(shells, ", "), Suggestion(NearNames(arguments.text, shells))));
    return ExitStatus::kUsage;
  }
  streams.out << script;
  return ExitStatus::kOk;
}

}  // namespace Zelk::Tool
