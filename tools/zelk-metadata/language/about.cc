#include "language/about.h"

#include "language/exit_status.h"

namespace Zelk::Tool {
namespace {

std::pair<int, std::string> Row(ExitStatus status, const char* text) {
  return {static_cast<int>(status), text};
}

}  // namespace

const char kDescription[] = "Answers questions about the interfaces that metadata files describe.";

const char kAboutSources[] =
    "A source PATH is a file, a folder, a pipe or - for standard input. In a folder, every *.json "
    "in it and below it, to any depth, is loaded. The domain, Metamodel, Authentication or CLI, is "
    "found in the file. The ID of a source is the text before the first '=', or else the name of "
    "the file without folder and extension. Text before '=' that is empty or has a '/' is not an "
    "ID but part of the path: write ./a=b.json for a file a=b.json. The ID of a file in a folder "
    "is its path below the folder without extension, after ID/ if the folder has an ID.\n"
    "\n"
    "Default sources are loaded, too, unless --no-default-sources is given: those in the variable "
    "ZELK_METADATA_PATH, separated by colons, or else those under the key \"sources\" of the "
    "nearest .zelk-metadata.json, from the working folder upwards, relative to that file.\n";

const char kAboutOutput[] =
    "On a terminal, output is a table or a page in its width, with colours, and a pager shows what "
    "is longer than the screen. Elsewhere it is plain: nothing is wrapped, and lists have no "
    "headings. JSON is an object with the version of its shape and an array.\n";

const char kAboutExamples[] =
    "The examples load the folder metadata, which describes the library's own services. It is in "
    "share/zelk-metadata below the folder that the program was installed to.\n";

const std::vector<std::pair<int, std::string>>& ExitStatusTexts() {
  static const std::vector<std::pair<int, std::string>> texts{
      Row(ExitStatus::kOk, "success"),
      Row(ExitStatus::kSourceFailed, "a source failed to load, or check found an error"),
      Row(ExitStatus::kUsage, "wrong usage"),
      Row(ExitStatus::kNotFound, "unknown kind or id (1 if a source failed as well)"),
      Row(ExitStatus::kOutputLost, "the output could not be written, or memory ran out"),
      Row(ExitStatus::kFound, "lint or diff found something that fails"),
  };
  return texts;
}

}  // namespace Zelk::Tool
