#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <sys/types.h>

namespace Zelk::Tool {

/// An object of a git repository.
struct GitObject {
  /// In hexadecimal digits.
  std::string id;

  /// "blob" or "tree", or another word.
  std::string type;

  std::string content;
};

/// Reads objects of the repository that the working folder is in, by one `git` that runs as long as
/// this object lives. Names are never words of its command line, so they cannot become options, and
/// nothing is written to the repository.
class GitObjects {
 public:
  GitObjects();
  GitObjects(const GitObjects&) = delete;
  GitObjects& operator=(const GitObjects&) = delete;
  ~GitObjects();

  /// The object of that name. Links on the path of "REV:PATH", and at its end, are followed. Empty
  /// if it does not exist, or if Failure() has a text then.
  std::optional<GitObject> Get(const std::string& name);

  /// Why git does not run, or what is wrong with the last name or with a link in it; or empty.
  const std::string& Failure() const { return failure_.empty() ? name_failure_ : failure_; }

 private:
  /// Why git cannot be started; empty if it was.
  std::string Start();

  /// Why the object could not be found, as the answer of git says.
  std::string ReadNameFailure(const std::string& line);

  /// What git wrote about its end.
  std::string Complaint() const;

  void Send(const std::string& text) const;
  std::string ReadLine();

  /// Empty if Failure() has a text then.
  std::optional<std::string> ReadContent(std::uint64_t size);

  /// Whether more was received.
  bool Receive();

  pid_t process_ = 0;
  int socket_ = -1;
  int complaints_ = -1;
  std::string received_;
  std::string failure_;
  std::string name_failure_;
};

}  // namespace Zelk::Tool
