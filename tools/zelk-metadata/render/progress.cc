#include "render/progress.h"

#include <ostream>
#include <system_error>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Render {
namespace {

/// Back to the beginning of the line, which is emptied.
constexpr char kWipe[] = "\r\x1b[K";

}  // namespace

Progress::Progress(std::ostream& err, const Terminal& terminal, std::chrono::milliseconds patience)
    : err_(err), width_(terminal.width) {
  if (!terminal.is_terminal) return;
  try {
    watcher_ = std::thread([this, patience] { Watch(patience); });
  } catch (const std::system_error&) {
    // Memory for another stack is not available. The command does its work without progress.
  }
}

Progress::~Progress() {
  if (!watcher_.joinable()) return;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    done_ = true;
  }
  changed_.notify_one();
  watcher_.join();
}

void Progress::Show(const std::string& text) {
  if (!watcher_.joinable()) return;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    text_ = Cut(ForTerminal(text), width_);
    is_new_ = true;
  }
  changed_.notify_one();
}

void Progress::Watch(std::chrono::milliseconds patience) {
  std::unique_lock<std::mutex> lock(mutex_);
  if (changed_.wait_for(lock, patience, [this] { return done_; })) return;
  while (!done_) {
    if (is_new_) err_ << kWipe << text_ << std::flush;
    is_new_ = false;
    changed_.wait(lock, [this] { return done_ || is_new_; });
  }
  err_ << kWipe << std::flush;
}

}  // namespace Zelk::Tool::Render
