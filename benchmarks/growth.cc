#include "growth.h"

#include <algorithm>
#include <cmath>

namespace Zelk::Benchmarks {

double GrowthExponent(const std::vector<std::pair<double, double>>& points) {
  double sum_x = 0;
  double sum_y = 0;
  double sum_xx = 0;
  double sum_xy = 0;
  for (const auto& [size, cost] : points) {
    const double x = std::log(size);
    const double y = std::log(std::max(cost, 1e-9));
    sum_x += x;
    sum_y += y;
    sum_xx += x * x;
    sum_xy += x * y;
  }
  const auto count = static_cast<double>(points.size());
  return (count * sum_xy - sum_x * sum_y) / (count * sum_xx - sum_x * sum_x);
}

}  // namespace Zelk::Benchmarks
