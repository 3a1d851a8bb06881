#pragma once

#include <string>
#include <vector>

namespace Zelk::Benchmarks {

// Loads that make no records, to compare ours with. Both throw for anything but a JSON file.

/// The least that any load has to do: the file is read at once, digested by OpenSSL, and parsed by
/// RapidJSON where it lies. Then all of it is released.
void LoadFloor(const std::vector<std::string>& paths);

/// The obvious way: RapidJSON takes the file from a stream, and the digest reads it once more.
void LoadNaively(const std::vector<std::string>& paths);

/// The whole file.
std::string ReadFile(const std::string& path);

}  // namespace Zelk::Benchmarks
