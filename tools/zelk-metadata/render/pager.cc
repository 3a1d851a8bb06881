#include "render/pager.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <ostream>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Zelk::Tool::Render {
namespace {

/// If the pager is not installed, cat shows everything.
constexpr char kScript[] =
    "trap '' INT; export LESS=\"${LESS-FRX}\"; eval \"$1\"; test $? -ne 127 || exec cat";
constexpr char kLess[] = "if command -v less >/dev/null; then less; else cat; fi";

/// Empty for none.
std::string CommandFromEnvironment() {
  for (const char* variable : {"ZELK_METADATA_PAGER", "PAGER"}) {
    const char* const command = std::getenv(variable);
    if (command != nullptr) return command == std::string("cat") ? "" : command;
  }
  return kLess;
}

/// A shell that runs the command with `input` as its standard input; 0 if that fails.
pid_t Spawn(const std::string& command, int input) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  std::string name = "sh";
  std::string option = "-c";
  std::string script = kScript;
  std::string argument = command;
  const std::array<char*, 6> args{name.data(), option.data(),   script.data(),
                                  name.data(), argument.data(), nullptr};
  pid_t process = 0;
  const int error = posix_spawn(&process, "/bin/sh", &actions, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? process : 0;
}

}  // namespace

bool WantsPager(const Terminal& terminal) {
  return terminal.height > 0 && !CommandFromEnvironment().empty();
}

Pager::Pager(std::ostream& out, std::ostream& err, const Terminal& terminal)
    : out_(out), err_(err), terminal_(terminal) {}

Pager::~Pager() {
  if (process_ == 0) {
    out_ << written_;
    return;
  }
  close(pipe_);
  waitpid(process_, nullptr, 0);
  std::signal(SIGPIPE, pipe_signal_before_);
  std::signal(SIGINT, interrupt_before_);
  err_.rdbuf(err_buffer_);
  err_ << errors_.str() << std::flush;
}

Pager::int_type Pager::overflow(int_type character) {
  const char text = traits_type::to_char_type(character);
  xsputn(&text, 1);
  return traits_type::not_eof(character);
}

std::streamsize Pager::xsputn(const char* text, std::streamsize size) {
  const auto length = static_cast<std::size_t>(size);
  if (process_ != 0) {
    Send(text, length);
    return size;
  }
  written_.append(text, length);
  for (std::size_t i = 0; i < length; ++i) {
    const bool is_full = terminal_.width > 0 && ++column_ > terminal_.width;
    if (text[i] != '\n' && !is_full) continue;
    ++lines_;
    column_ = text[i] == '\n' ? 0 : 1;
  }
  if (lines_ >= terminal_.height) Start();
  return size;
}

void Pager::Start() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return;  // coverage: a test would have to open all files
  process_ = Spawn(CommandFromEnvironment(), ends[0]);
  close(ends[0]);
  pipe_ = ends[1];
  if (process_ == 0) {  // coverage: the shell is always there
    close(pipe_);
    return;
  }
  // The pager ends on its own keys.
  pipe_signal_before_ = std::signal(SIGPIPE, SIG_IGN);
  interrupt_before_ = std::signal(SIGINT, SIG_IGN);
  err_buffer_ = err_.rdbuf(&errors_);
  Send(written_.data(), written_.size());
}

void Pager::Send(const char* text, std::size_t size) const {
  while (size > 0) {
    const ssize_t sent = write(pipe_, text, size);
    if (sent < 0) return;
    text += sent;
    size -= static_cast<std::size_t>(sent);
  }
}

}  // namespace Zelk::Tool::Render
