#include <algorithm>
#include <memory>

#include "check/findings.h"
#include "check/output.h"
#include "domains/table.h"
#include "host/input_file.h"
#include "language/invocation.h"

namespace Zelk::Tool {
namespace {

using Check::CheckedFile;
using Check::CheckFile;

/// What is wrong with each file, in the order given.
ExitStatus RunCheck(Invocation& call) {
  const Arguments& arguments = call.Args();
  if (!arguments.sources.empty()) {
    return call.Fail(ExitStatus::kUsage, "check takes the files as operands, not as --source");
  }
  const bool reads_input =
      std::find(arguments.files.begin(), arguments.files.end(), "-") != arguments.files.end();
  if (reads_input && !call.MayReadInput()) return ExitStatus::kUsage;
  ExitStatus status = ExitStatus::kOk;
  std::shared_ptr<const InputFile> input;
  std::vector<CheckedFile> for_json;
  for (const std::string& file : arguments.files) {
    const bool is_input = file == "-";
    if (is_input && !input) input = InputFile::Copy(call.GetStreams().in).file;
    if (is_input && !input) {  // coverage: a test would have to fill the disk
      status = call.Fail(ExitStatus::kSourceFailed, "no space for a copy of standard input");
      continue;
    }
    CheckedFile checked = is_input ? CheckFile("<stdin>", input->Path(), Domains())
                                   : CheckFile(file, file, Domains());
    if (!checked.findings.empty()) status = ExitStatus::kSourceFailed;
    if (call.WantsJson()) {
      checked.text.reset();
      for_json.push_back(std::move(checked));
    } else if (arguments.output == "github") {
      WriteCheckedCommands(call.Out(), checked);
    } else {
      WriteCheckedText(call.Out(), checked);
    }
  }
  if (call.WantsJson()) call.ShowJsonArray("files", for_json, Check::WriteCheckedJson);
  return status;
}

}  // namespace

Command CheckCommand() {
  Command command;
  command.name = "check";
  command.summary = "Load each file separately and report what is wrong with it";
  command.operands = {{"FILE", Word::kPath, true,
                       "Metadata files, each loaded separately; - is standard input",
                       &Arguments::files}};
  command.outputs = {"text", "json", "github"};
  command.example =
      "check metadata/metamodel/zelk-metadata.json metadata/authentication/zelk-metadata.json "
      "metadata/cli/zelk-metadata.json";
  command.run = RunCheck;
  return command;
}

}  // namespace Zelk::Tool
