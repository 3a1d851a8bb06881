#pragma once

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace Zelk::Testing {

/// Runs `work(index)` on so many threads, which begin together; returns when all have ended.
template <typename Work>
void InThreads(std::size_t count, const Work& work) {
  std::atomic<std::size_t> waiting{count};
  std::vector<std::thread> threads;
  for (std::size_t index = 0; index < count; ++index) {
    threads.emplace_back([&waiting, &work, index] {
      --waiting;
      while (waiting > 0) std::this_thread::yield();
      work(index);
    });
  }
  for (auto& thread : threads) thread.join();
}

}  // namespace Zelk::Testing
