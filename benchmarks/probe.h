#pragma once

#include <string>
#include <vector>

#include "domain_id.h"

namespace Zelk::Benchmarks {

/// The numbers that memory_probe, which lies beside this program, prints when it is run with
/// `args`.
std::vector<std::vector<double>> Probe(const std::vector<std::string>& args);

/// Of a probe of the files.
std::vector<std::string> ProbeArguments(const char* what, DomainId domain,
                                        const std::vector<std::string>& paths);

}  // namespace Zelk::Benchmarks
