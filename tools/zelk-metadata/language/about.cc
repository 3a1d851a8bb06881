#include "language/about.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "language/exit_status.h"
#include "render/layout.h"

namespace Zelk::Tool {
namespace {

constexpr std::size_t kWidth = 100;

std::pair<int, std::string> Row(ExitStatus status, const char* text) {
  return {static_cast<int>(status), text};
}

}  // namespace

const char kDescription[] = "Answers questions about the interfaces that metadata files describe.";

const char kAboutSources[] =
    "A source PATH is a file; a folder, of which every *.json is loaded; or - for standard input.\n"
    "What a file describes, Metamodel, Authentication or CLI, is found in it. It gets the ID that\n"
    "stands before the first '=', or else its name without folder and extension. Text before '='\n"
    "that is empty or has a '/' is no ID but part of the path, so a file a=b.json in the current\n"
    "folder is ./a=b.json. An ID for a folder stands before the names of its files: ID/NAME.\n";

const char kAboutOutput[] =
    "Output is a table or a page for people on a terminal, in its width and with colours unless\n"
    "NO_COLOR is set. Elsewhere it is plain: nothing is wrapped, and lists have no headings.\n";

const char kAboutExamples[] =
    "The examples load the folder metadata, which describes the program's own services. It is in\n"
    "share/zelk-metadata below the folder that the program was installed to.\n";

const std::vector<std::pair<int, std::string>>& ExitStatusTexts() {
  static const std::vector<std::pair<int, std::string>> texts{
      Row(ExitStatus::kOk, "all is well"),
      Row(ExitStatus::kSourceFailed, "a source failed to load, or check found problems"),
      Row(ExitStatus::kUsage, "wrong usage"),
      Row(ExitStatus::kNotFound, "unknown kind or id (1 if a source failed, too)"),
      Row(ExitStatus::kOutputLost, "the output could not be written"),
  };
  return texts;
}

std::string HelpFooter() {
  std::string statuses = "Exit status:";
  for (const auto& [status, text] : ExitStatusTexts()) {
    statuses += fmt::format("{} {} {}", status == 0 ? "" : ";", status, text);
  }
  statuses += '.';
  return fmt::format("{}\n{}\n{}\n{}", kAboutExamples, kAboutSources, kAboutOutput,
                     fmt::join(Wrapped(statuses, kWidth), "\n"));
}

}  // namespace Zelk::Tool
