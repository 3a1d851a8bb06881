#pragma once

#include <chrono>

namespace Zelk::Benchmarks {

/// Runs from its construction on.
class Stopwatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace Zelk::Benchmarks
