#pragma once

#include <utility>
#include <vector>

namespace Zelk::Benchmarks {

/// The exponent of the power law that fits best: the slope of the straight line through the
/// logarithms, by least squares. The points are pairs of a size and its cost; 1 is linear.
double GrowthExponent(const std::vector<std::pair<double, double>>& points);

}  // namespace Zelk::Benchmarks
