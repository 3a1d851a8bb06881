#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <pthread.h>
#include <stdexcept>

namespace Zelk {
namespace Testing {

namespace Internal {

struct SmallStackCall {
  const std::function<void()>& function;
  std::exception_ptr thrown;
};

inline void* RunSmallStackCall(void* argument) {
  auto& call = *static_cast<SmallStackCall*>(argument);
  try {
    call.function();
  } catch (...) {
    call.thrown = std::current_exception();
  }
  return nullptr;
}

}  // namespace Internal

// Runs the function on a thread whose stack has the given size, and returns when it is done. What
// the function throws is thrown here. A function that needs more stack ends the process.
inline void RunOnSmallStack(std::size_t bytes, const std::function<void()>& function) {
  Internal::SmallStackCall call{function, nullptr};
  pthread_attr_t attributes;
  pthread_t thread;
  if (pthread_attr_init(&attributes) != 0) throw std::runtime_error("no thread attributes");
  const bool started =
      pthread_attr_setstacksize(&attributes, bytes) == 0 &&
      pthread_create(&thread, &attributes, &Internal::RunSmallStackCall, &call) == 0;
  pthread_attr_destroy(&attributes);
  if (!started) throw std::runtime_error("no thread with such a stack");
  pthread_join(thread, nullptr);
  if (call.thrown) std::rethrow_exception(call.thrown);
}

}  // namespace Testing
}  // namespace Zelk
