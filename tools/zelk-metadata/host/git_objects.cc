#include "host/git_objects.h"

#include <array>
#include <cerrno>
#include <spawn.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

#include "host/input_file.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

std::string SystemText(int error) {
  return "git cannot be started: " + std::generic_category().message(error);
}

/// The words of a line, which single blanks separate.
std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words(1);
  for (const char byte : line) {
    if (byte == ' ') {
      words.emplace_back();
    } else {
      words.back() += byte;
    }
  }
  return words;
}

}  // namespace

GitObjects::GitObjects() : failure_(Start()) {}

GitObjects::~GitObjects() {
  if (socket_ >= 0) close(socket_);
  if (complaints_ >= 0) close(complaints_);
  if (process_ != 0) waitpid(process_, nullptr, 0);
}

std::string GitObjects::Start() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return SystemText(errno);
  }
  socket_ = ends[0];
  complaints_ = memfd_create("git", MFD_CLOEXEC);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, complaints_, STDERR_FILENO);
  std::string program = "git";
  std::string command = "cat-file";
  std::string batch = "--batch";
  std::string follow = "--follow-symlinks";
  const std::array<char*, 5> words{program.data(), command.data(), batch.data(), follow.data(),
                                   nullptr};
  // Its messages are read. Of two values of a variable, the first one counts.
  std::string locale = "LC_ALL=C";
  std::vector<char*> variables{locale.data()};
  for (char** variable = environ; *variable != nullptr; ++variable) variables.push_back(*variable);
  variables.push_back(nullptr);
  const int error =
      posix_spawnp(&process_, program.c_str(), &actions, nullptr, words.data(), variables.data());
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  if (error == 0) return "";
  process_ = 0;
  return SystemText(error);
}

std::optional<GitObject> GitObjects::Get(const std::string& name) {
  if (!failure_.empty()) return std::nullopt;
  // Each line is a name.
  if (name.find('\n') != std::string::npos) {
    name_failure_ = "a name with a line end cannot be read";
    return std::nullopt;
  }
  Send(name + '\n');
  const std::string line = ReadLine();
  const std::vector<std::string> words = WordsOf(line);
  const auto size = words.size() == 3 ? Render::ParseNumber(words[2]) : std::nullopt;
  name_failure_ = size ? "" : ReadNameFailure(line);
  if (!size) return std::nullopt;
  auto content = ReadContent(*size);
  if (!content) return std::nullopt;
  return GitObject{words[0], words[1], std::move(*content)};
}

std::string GitObjects::ReadNameFailure(const std::string& line) {
  if (line.empty()) failure_ = Complaint();
  // For other failures, the line is the name and a word.
  const std::vector<std::string> words = WordsOf(line);
  const auto size = words.size() == 2 ? Render::ParseNumber(words[1]) : std::nullopt;
  const auto content = size ? ReadContent(*size) : std::nullopt;
  if (!content) return "";
  if (words[0] == "symlink") return "it is a link to '" + *content + "', outside of the repository";
  if (words[0] == "loop") return "it is a link in a loop of links";
  if (words[0] == "notdir") return "a part of this path is a file, not a folder";
  return "it is a link to what does not exist";
}

std::string GitObjects::Complaint() const {
  std::array<char, 1000> text{};
  const ssize_t size = pread(complaints_, text.data(), text.size(), 0);
  const std::string complaint(text.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  if (complaint.empty()) return "git has ended without a message";
  constexpr std::string_view kNoRepository = "fatal: not a git repository (or any";
  if (complaint.compare(0, kNoRepository.size(), kNoRepository) == 0) {
    return "the working folder is not in a repository of git";
  }
  constexpr std::string_view kFatal = "fatal: ";
  const bool is_fatal = complaint.compare(0, kFatal.size(), kFatal) == 0;
  return "git has failed: " + Render::FirstLine(complaint.substr(is_fatal ? kFatal.size() : 0));
}

void GitObjects::Send(const std::string& text) const {
  std::size_t sent = 0;
  while (sent < text.size()) {
    const ssize_t count = send(socket_, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
    if (count < 0) return;
    sent += static_cast<std::size_t>(count);
  }
}

bool GitObjects::Receive() {
  std::array<char, 65536> chunk{};
  const ssize_t count = recv(socket_, chunk.data(), chunk.size(), 0);
  if (count > 0) received_.append(chunk.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::string GitObjects::ReadLine() {
  std::size_t end = received_.find('\n');
  while (end == std::string::npos) {
    if (!Receive()) return "";
    end = received_.find('\n');
  }
  std::string line = received_.substr(0, end);
  received_.erase(0, end + 1);
  return line;
}

std::optional<std::string> GitObjects::ReadContent(std::uint64_t size) {
  if (size > kMaxFileSize) {
    failure_ = "it is larger than a file may be";
    return std::nullopt;
  }
  const auto count = static_cast<std::size_t>(size);
  // A line end follows.
  while (received_.size() <= count) {
    if (Receive()) continue;
    failure_ = Complaint();
    return std::nullopt;
  }
  std::string content = std::move(received_);
  received_ = content.substr(count + 1);
  content.resize(count);
  return content;
}

}  // namespace Zelk::Tool
