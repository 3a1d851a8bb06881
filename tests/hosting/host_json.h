#pragma once

#include <string>

/// A host's own JSON, with the same library under it but built with other choices: sizes of 64
/// bits, comments allowed, other assertions, std::string values. It answers the sum of the numbers
/// of an array "a" and the length of a text "s"; -1 for what is not JSON by its rules.
__attribute__((visibility("default"))) long HostSum(const std::string& json);
