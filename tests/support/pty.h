#pragma once

#include <array>
#include <cstdlib>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace Zelk::Testing {

/// What a shell command shows on a real terminal of that many columns, line ends as the terminal
/// gets them, and how the command ended.
struct Shown {
  int status;
  std::string text;
};

inline Shown ShowOnTerminal(const std::string& command, unsigned short columns) {
  winsize size{};
  size.ws_row = 50;
  size.ws_col = columns;
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
  if (child < 0) throw std::runtime_error("no terminal");
  if (child == 0) {
    execl("/bin/bash", "bash", "-c", command.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  Shown shown{};
  std::array<char, 4096> chunk{};
  // The end is an error here, once nobody has the other side open any more.
  for (ssize_t size_read = 0; (size_read = read(terminal, chunk.data(), chunk.size())) > 0;) {
    shown.text.append(chunk.data(), static_cast<std::size_t>(size_read));
  }
  close(terminal);
  int status = 0;
  waitpid(child, &status, 0);
  shown.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return shown;
}

}  // namespace Zelk::Testing
