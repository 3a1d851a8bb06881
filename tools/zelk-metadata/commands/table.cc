#include "commands/table.h"

namespace Zelk::Tool {

const std::vector<Command>& Commands() {
  static const std::vector<Command> commands{
      CheckCommand(),
      ListCommand(),
      GetCommand(),
      FingerprintCommand(),
  };
  return commands;
}

}  // namespace Zelk::Tool
