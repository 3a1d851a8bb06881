#pragma once

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

namespace Zelk::Testing {

/// What a shell command shows on a real terminal of that many columns, line ends as the terminal
/// gets them, and how the command ended.
struct Shown {
  int status;
  std::string text;
};

/// What is typed once the terminal has shown a text, after what it had shown at the step before.
struct Typing {
  std::string awaited;
  std::string keys;

  /// The width that the terminal gets before that, unless it is 0.
  unsigned short columns = 0;

  /// The terminal is closed instead.
  bool hangs_up = false;
};

/// Skips its tests where there are no pseudo-terminals.
class TerminalTest : public testing::Test {
 protected:
  void SetUp() override {
    int terminal = -1;
    int other_side = -1;
    if (openpty(&terminal, &other_side, nullptr, nullptr, nullptr) != 0) {
      GTEST_SKIP() << "no pseudo-terminal: " << std::strerror(errno);
    }
    close(terminal);
    close(other_side);
  }
};

/// A command that shows nothing for so long is ended.
constexpr int kPatienceInMilliseconds = 30000;

inline Shown ShowOnTerminal(const std::string& command, unsigned short columns,
                            const std::vector<Typing>& steps = {}) {
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
  std::size_t step = 0;
  std::size_t seen = 0;
  pollfd ready{terminal, POLLIN, 0};
  while (true) {
    if (poll(&ready, 1, kPatienceInMilliseconds) == 0) {
      kill(child, SIGKILL);
      break;
    }
    // Reading fails once the other side is closed.
    const ssize_t size_read = read(terminal, chunk.data(), chunk.size());
    if (size_read <= 0) break;
    shown.text.append(chunk.data(), static_cast<std::size_t>(size_read));
    if (step == steps.size()) continue;
    const Typing& next = steps[step];
    if (shown.text.find(next.awaited, seen) == std::string::npos) continue;
    seen = shown.text.size();
    ++step;
    if (next.hangs_up) break;
    if (next.columns > 0) size.ws_col = next.columns;
    ioctl(terminal, TIOCSWINSZ, &size);
    if (write(terminal, next.keys.data(), next.keys.size()) < 0) break;
  }
  close(terminal);
  int status = 0;
  waitpid(child, &status, 0);
  shown.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return shown;
}

}  // namespace Zelk::Testing
