#include <csignal>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

#include "run.h"

int main(int argc, char** argv) {
  // When the reader closes the pipe the program ends quietly, even if the parent ignores the
  // signal.
  std::signal(SIGPIPE, SIG_DFL);
  // A file that becomes too large for the limit of the process is reported, as a full disk is.
  std::signal(SIGXFSZ, SIG_IGN);
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
  return Zelk::Tool::Run(
      args, {std::cin, std::cout, std::cerr, Zelk::Tool::Render::TerminalOf(STDOUT_FILENO),
             Zelk::Tool::Render::TerminalOf(STDERR_FILENO), isatty(STDIN_FILENO) != 0});
}
