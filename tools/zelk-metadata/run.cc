#include "run.h"

#include <ostream>

#include "commands/table.h"
#include "render/page.h"

namespace Zelk::Tool {

int Run(const std::vector<std::string>& args, const Streams& streams) {
  ExitStatus status = Perform(args, ProgramLanguage(), streams);
  if (!streams.out.flush()) {
    PrintError(streams.err, "the output could not be written");
    status = ExitStatus::kOutputLost;
  }
  return static_cast<int>(status);
}

}  // namespace Zelk::Tool
