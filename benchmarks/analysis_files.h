#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "domain_id.h"

namespace Zelk::Benchmarks {

/// Reads the files and lints them together by the rules that run by default. Returns how many
/// findings there are.
std::size_t LintFiles(DomainId domain, const std::vector<std::string>& paths);

}  // namespace Zelk::Benchmarks
