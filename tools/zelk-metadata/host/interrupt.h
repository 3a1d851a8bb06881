#pragma once

#include <csignal>

namespace Zelk::Tool {

/// While one lives, Ctrl-C ends nothing but is noted. One at a time, since signals are the
/// process's.
class InterruptWatch {
 public:
  InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;
  ~InterruptWatch();

 private:
  struct sigaction before_ {};
};

/// Whether Ctrl-C was pressed since the watch began; false without a watch. What takes long looks
/// at it from time to time and leaves the rest undone.
bool IsInterrupted();

}  // namespace Zelk::Tool
