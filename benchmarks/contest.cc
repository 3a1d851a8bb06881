#include "contest.h"

#include <algorithm>
#include <utility>

namespace Zelk::Benchmarks {
namespace {

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

std::size_t Contest::Add(std::function<double()> once) {
  contenders_.push_back({std::move(once), {}});
  return contenders_.size() - 1;
}

void Contest::Run(benchmark::State& state) {
  for (const Contender& contender : contenders_) contender.once();
  for (auto _ : state) {
    for (Contender& contender : contenders_) contender.seconds.push_back(contender.once());
    state.SetIterationTime(contenders_.front().seconds.back());
  }
}

double Contest::MedianSeconds(std::size_t contender) const {
  return Median(contenders_[contender].seconds);
}

double Contest::MedianRatio(std::size_t one, std::size_t other) const {
  std::vector<double> ratios;
  for (std::size_t round = 0; round < contenders_[one].seconds.size(); ++round) {
    ratios.push_back(contenders_[one].seconds[round] / contenders_[other].seconds[round]);
  }
  return Median(std::move(ratios));
}

}  // namespace Zelk::Benchmarks
