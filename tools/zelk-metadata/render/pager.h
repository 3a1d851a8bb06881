#pragma once

#include <csignal>
#include <cstddef>
#include <iosfwd>
#include <sstream>
#include <streambuf>
#include <string>
#include <sys/types.h>

#include "render/terminal.h"

namespace Zelk::Tool::Render {

/// Whether the terminal can show one screen after the other, and the user has a pager: that of the
/// variable ZELK_METADATA_PAGER or PAGER, or less.
bool WantsPager(const Terminal& terminal);

/// What one command writes to such a terminal. If it is longer than the screen, the pager shows it.
class Pager : public std::streambuf {
 public:
  /// What is shorter than the screen is written to `out` at the end. While the pager runs, what is
  /// written to `err` waits.
  Pager(std::ostream& out, std::ostream& err, const Terminal& terminal);
  Pager(const Pager&) = delete;
  Pager& operator=(const Pager&) = delete;

  /// Waits until the user has left the pager.
  ~Pager() override;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;

 private:
  /// Runs the pager and gives it what was written so far.
  void Start();

  /// Drops the text if the user has left the pager.
  void Send(const char* text, std::size_t size) const;

  std::ostream& out_;
  std::ostream& err_;
  const Terminal terminal_;
  std::string written_;
  std::size_t lines_ = 0;
  std::size_t column_ = 0;
  pid_t process_ = 0;
  int pipe_ = -1;
  std::stringbuf errors_;
  std::streambuf* err_buffer_ = nullptr;
  void (*pipe_signal_before_)(int) = SIG_DFL;
  void (*interrupt_before_)(int) = SIG_DFL;
};

}  // namespace Zelk::Tool::Render
