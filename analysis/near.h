#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Zelk::Analysis {

/// How many characters must be inserted, removed, changed or exchanged with their neighbour to make
/// one text of the other; `limit + 1` if more than `limit`. The work grows with the length times
/// the limit.
std::size_t EditDistance(const std::string& left, const std::string& right, std::size_t limit);

/// The few names that the author of `wanted` may have meant, the likeliest first: but for upper
/// and lower case the same, the same after a dot, or a typing error away.
std::vector<std::string> NearNames(const std::string& wanted,
                                   const std::vector<std::string>& known);

/// "; did you mean A, B or C?", or nothing without names.
std::string Suggestion(const std::vector<std::string>& names);

/// The same, of the names that the author of `wanted` may have meant.
std::string Suggestion(const std::string& wanted, const std::vector<std::string>& known);

}  // namespace Zelk::Analysis
