#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include <benchmark/benchmark.h>

namespace Zelk::Benchmarks {

/// Several ways of doing the same, run in turn again and again: what disturbs the machine for a
/// while disturbs all of them. Ratios are taken between neighbours, and then their median.
class Contest {
 public:
  /// `once` does it once and returns the seconds of the part that counts. Returns its number.
  std::size_t Add(std::function<double()> once);

  /// A round for each iteration of `state`, after one that does not count.
  void Run(benchmark::State& state);

  double MedianSeconds(std::size_t contender) const;

  /// The median of what `one` took against `other` in the same round.
  double MedianRatio(std::size_t one, std::size_t other) const;

  /// The median of how many seconds longer `one` took than `other` in the same round.
  double MedianDifference(std::size_t one, std::size_t other) const;

 private:
  struct Contender {
    std::function<double()> once;
    std::vector<double> seconds;
  };

  template <typename Compare>
  double MedianOf(std::size_t one, std::size_t other, const Compare& compare) const;

  std::vector<Contender> contenders_;
};

}  // namespace Zelk::Benchmarks
