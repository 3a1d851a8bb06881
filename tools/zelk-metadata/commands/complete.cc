#include <filesystem>
#include <memory>
#include <ostream>
#include <sstream>

#include "commands/table.h"
#include "complete/completion.h"
#include "domains/table.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

/// What may still be read: nobody waits for a word longer than it takes to type it.
struct Budget {
  std::uintmax_t bytes = 8U << 20U;
  std::size_t entries = 4096;
};

/// Takes the file's size off the budget. What is no file may never end.
bool CanBeRead(const std::string& path, Budget& budget) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error || size > budget.bytes) return false;
  budget.bytes -= size;
  return true;
}

/// Loads what can be loaded at once, but not standard input, which is the terminal; what fails is
/// told when the command runs.
void LoadForWords(Host& host, const std::vector<std::string>& sources) {
  std::istringstream nothing;
  Budget budget;
  for (const std::string& text : sources) {
    const SourceArgument argument = ParseSourceArgument(text);
    if (argument.path == "-") continue;
    for (const SourceArgument& source : Expand(argument, nothing, budget.entries).sources) {
      if (CanBeRead(source.path, budget)) host.Load(source);
    }
  }
}

const char* NameOf(Completion::Of of) {
  switch (of) {
    case Completion::Of::kPath:
      return "path";
    case Completion::Of::kSource:
      return "source";
    case Completion::Of::kWords:
      break;
  }
  return "words";
}

}  // namespace

/// What can be typed, one a line. Words that a terminal cannot show as they are, line ends among
/// them, are left out.
ExitStatus RunComplete(const std::vector<std::string>& words, const Streams& streams) {
  std::unique_ptr<Host> host;
  const HostOf host_of = [&host](const std::vector<std::string>& sources) -> const Host& {
    if (!host) host = std::make_unique<Host>(Domains());
    LoadForWords(*host, sources);
    return *host;
  };
  const Completion completion = Complete(words, ProgramLanguage(), host_of);
  streams.out << NameOf(completion.of) << '\n';
  for (const Choice& choice : completion.choices) {
    if (ForTerminal(choice.word) != choice.word) continue;
    streams.out << choice.word << '\t' << ForTerminal(choice.summary) << '\n';
  }
  return ExitStatus::kOk;
}

}  // namespace Zelk::Tool
