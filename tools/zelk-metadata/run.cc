#include "run.h"

#include <ostream>

#include "arguments.h"
#include "commands/command.h"
#include "commands/table.h"
#include "render/page.h"

namespace Zelk::Tool {
namespace {

ExitStatus Perform(const std::vector<std::string>& args, const Streams& streams) {
  if (args.size() > 1 && args[0] == "complete" && args[1] == "--") {
    return RunComplete({args.begin() + 2, args.end()}, streams);
  }
  const ParsedArguments parsed = ParseArguments(args, ProgramLanguage());
  if (parsed.command != nullptr) return parsed.command->run(parsed.arguments, streams);
  if (parsed.error.empty()) {
    streams.out << parsed.help;
    return ExitStatus::kOk;
  }
  PrintError(streams.err, parsed.error);
  return ExitStatus::kUsage;
}

}  // namespace

int Run(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
        std::ostream& err, const Terminal& out_terminal, const Terminal& err_terminal) {
  const Streams streams{in, out, err, out_terminal, err_terminal};
  ExitStatus status = Perform(args, streams);
  if (!out.flush()) {
    PrintError(err, "the output could not be written");
    status = ExitStatus::kOutputLost;
  }
  return static_cast<int>(status);
}

}  // namespace Zelk::Tool
