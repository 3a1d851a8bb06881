#pragma once

#include <string>
#include <vector>

namespace Zelk::Testing {

/// A text that a test compares, line by line.
using Lines = std::vector<std::string>;

}  // namespace Zelk::Testing
