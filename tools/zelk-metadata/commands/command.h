#pragma once

#include <iosfwd>
#include <string>

#include "arguments.h"
#include "exit_status.h"

namespace CLI {
class App;
}  // namespace CLI

namespace Zelk::Tool {

/// Where a command reads, answers and complains.
struct Streams {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// One command of the program, a row of the table of commands.
struct Command {
  std::string name;

  /// One line of --help.
  std::string summary;

  /// Declares the command's own operands and options, each bound to a member of the arguments.
  /// Those that all commands share are there already.
  void (*declare)(CLI::App& app, Arguments& arguments);

  ExitStatus (*run)(const Arguments& arguments, const Streams& streams);
};

}  // namespace Zelk::Tool
