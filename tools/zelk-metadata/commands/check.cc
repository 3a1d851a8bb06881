#include <algorithm>
#include <memory>

#include "check/findings.h"
#include "check/output.h"
#include "commands/sources.h"
#include "commands/table.h"
#include "domains/table.h"
#include "host/input_file.h"
#include "render/page.h"

namespace Zelk::Tool {

/// What is wrong with each file, in the order given.
ExitStatus RunCheck(const Arguments& arguments, const Streams& streams) {
  if (!arguments.sources.empty()) {
    PrintError(streams.err, "check takes the files as operands, not as --source");
    return ExitStatus::kUsage;
  }
  const bool reads_input =
      std::find(arguments.files.begin(), arguments.files.end(), "-") != arguments.files.end();
  if (reads_input && !MayReadInput(streams)) return ExitStatus::kUsage;
  ExitStatus status = ExitStatus::kOk;
  std::shared_ptr<const InputFile> input;
  std::vector<CheckedFile> for_json;
  for (const std::string& file : arguments.files) {
    const bool is_input = file == "-";
    if (is_input && !input) input = InputFile::Copy(streams.in);
    if (is_input && !input) {
      PrintError(streams.err, "there is no room for a copy of standard input");
      status = ExitStatus::kSourceFailed;
      continue;
    }
    CheckedFile checked = is_input ? CheckFile("<stdin>", input->Path(), Domains())
                                   : CheckFile(file, file, Domains());
    if (!checked.findings.empty()) status = ExitStatus::kSourceFailed;
    if (arguments.json) {
      checked.text.reset();
      for_json.push_back(std::move(checked));
    } else if (arguments.output == "github") {
      WriteCheckedCommands(streams.out, checked);
    } else {
      WriteCheckedText(streams.out, checked);
    }
  }
  if (arguments.json) WriteCheckedJson(streams.out, for_json);
  return status;
}

}  // namespace Zelk::Tool
