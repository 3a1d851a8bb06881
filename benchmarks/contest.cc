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
  return MedianOf(one, other, std::divides<>());
}

double Contest::MedianDifference(std::size_t one, std::size_t other) const {
  return MedianOf(one, other, std::minus<>());
}

template <typename Compare>
double Contest::MedianOf(std::size_t one, std::size_t other, const Compare& compare) const {
  const std::vector<double>& seconds = contenders_[one].seconds;
  std::vector<double> compared(seconds.size());
  std::transform(seconds.begin(), seconds.end(), contenders_[other].seconds.begin(),
                 compared.begin(), compare);
  return Median(std::move(compared));
}

}  // namespace Zelk::Benchmarks
