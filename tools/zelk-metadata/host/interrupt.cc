#include "host/interrupt.h"

#include <atomic>

namespace Zelk::Tool {
namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

void NoteInterrupt(int /*signal*/) {
  interrupted = true;
}

}  // namespace

InterruptWatch::InterruptWatch() {
  interrupted = false;

  // Without SA_RESTART, so that a call that waits ends.
  struct sigaction action {};

  action.sa_handler = NoteInterrupt;
  sigaction(SIGINT, &action, &before_);
}

InterruptWatch::~InterruptWatch() {
  sigaction(SIGINT, &before_, nullptr);
  interrupted = false;
}

bool IsInterrupted() {
  return interrupted;
}

}  // namespace Zelk::Tool
