#include "run.h"

#include <ostream>

#include "commands/table.h"

namespace Zelk::Tool {

int Run(const std::vector<std::string>& args, const Streams& streams) {
  ExitStatus status = Perform(args, ProgramLanguage(), streams);
  if (!streams.out.flush()) {
    streams.Complain("the output could not be written");
    status = ExitStatus::kOutputLost;
  }
  return static_cast<int>(status);
}

}  // namespace Zelk::Tool
