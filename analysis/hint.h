#pragma once

#include <string>

#include "analysis/reader.h"

namespace Zelk::Analysis {

/// What helps to fix the problem: the texts that are allowed, the likeliest first, or the key that
/// may be misspelt. Empty if nothing is known.
std::string HintOf(const Document& document, const Problem& problem);

}  // namespace Zelk::Analysis
