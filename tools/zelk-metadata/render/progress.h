#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <iosfwd>
#include <mutex>
#include <string>
#include <thread>

#include "render/terminal.h"

namespace Zelk::Tool::Render {

/// Shows on a terminal what is being done, once it takes long, and removes it at the end. Nothing
/// else may write to the stream meanwhile.
class Progress {
 public:
  /// Silent if the stream is not a terminal. What is wider than the terminal is cut.
  Progress(std::ostream& err, const Terminal& terminal, std::chrono::milliseconds patience);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  /// What is being done from now on.
  void Show(const std::string& text);

 private:
  void Watch(std::chrono::milliseconds patience);

  std::ostream& err_;
  const std::size_t width_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::string text_;
  bool is_new_ = false;
  bool done_ = false;
  std::thread watcher_;
};

}  // namespace Zelk::Tool::Render
