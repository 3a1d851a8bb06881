#include <filesystem>
#include <memory>
#include <ostream>

#include "complete/completion.h"
#include "domains/table.h"
#include "host/default_sources.h"
#include "language/invocation.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

/// What may still be read: completion must be faster than typing.
struct Budget {
  std::uintmax_t bytes = 8U << 20U;
  std::size_t entries = 4096;
};

/// Subtracts the file's size from the budget. Reading anything but a regular file may never end.
bool CanBeRead(const std::string& path, Budget& budget) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error || size > budget.bytes) return false;
  budget.bytes -= size;
  return true;
}

/// Loads what is quick to load, but not standard input, which is the terminal. Errors are reported
/// when the command runs.
void LoadForWords(Host& host, const Arguments& arguments) {
  Budget budget;
  DefaultSources defaults;
  if (!arguments.no_default_sources) defaults = FindDefaultSources();
  for (const std::string& text : WithDefaults(defaults.sources, arguments.sources)) {
    for (const SourceArgument& source : ExpandQuickly(ParseSourceArgument(text), budget.entries)) {
      if (CanBeRead(source.path, budget)) host.Load(source);
    }
  }
}

const char* NameOf(Complete::Completion::Of of) {
  switch (of) {
    case Complete::Completion::Of::kPath:
      return "path";
    case Complete::Completion::Of::kSource:
      return "source";
    case Complete::Completion::Of::kWords:
      break;
  }
  return "words";
}

/// What can be typed, one a line. Words that a terminal cannot show unchanged, such as those with
/// line ends, are left out.
ExitStatus RunComplete(Invocation& call) {
  const Complete::HostOf host_of = [&call](const Arguments& arguments) -> const Host& {
    LoadForWords(call.GetHost(), arguments);
    return call.GetHost();
  };
  const Complete::Completion completion =
      Complete::CompleteWord(call.Args().ids, call.GetLanguage(), host_of);
  call.Out() << NameOf(completion.of) << '\n';
  for (const Complete::Choice& choice : completion.choices) {
    if (Render::ForTerminal(choice.word) != choice.word) continue;
    call.Out() << choice.word << '\t' << Render::ForTerminal(choice.summary) << '\n';
  }
  return ExitStatus::kOk;
}

}  // namespace

/// What the completion scripts call: the words of the command line without the program. The last
/// one, which is to be completed, may be empty.
Command CompleteCommand() {
  Command command;
  command.name = "complete";
  command.is_paged = false;
  command.run = RunComplete;
  return command;
}

}  // namespace Zelk::Tool
