#pragma once

#include <string>
#include <vector>

namespace Zelk::Benchmarks {

/// The numbers that memory_probe, which lies beside this program, prints when it is run with
/// `args`.
std::vector<std::vector<double>> Probe(const std::vector<std::string>& args);

}  // namespace Zelk::Benchmarks
