#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Zelk::Tool {

/// A place in a text file. Both count from 1; columns count bytes.
struct FilePosition {
  std::uint64_t line;
  std::uint64_t column;
};

/// The most bytes that a file may have to be read by the library, and so by the tool.
inline constexpr std::uint64_t kMaxFileSize = 4294967295;

/// The position of the byte at `offset`; the file's end counts as a place, too. Empty for a file
/// that is shorter or not there any more, and for one that is not a regular file or has more than
/// kMaxFileSize bytes.
std::optional<FilePosition> PositionAt(const std::string& path, std::uint64_t offset);

}  // namespace Zelk::Tool
