#include "host/file_position.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace Zelk::Tool {

std::optional<FilePosition> PositionAt(const std::string& path, std::uint64_t offset) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  if (std::filesystem::file_size(path, ignored) > kMaxFileSize) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  FilePosition position{1, 1};
  for (; offset > 0; --offset) {
    const int byte = file.rdbuf()->sbumpc();
    if (byte == std::ifstream::traits_type::eof()) return std::nullopt;
    ++position.column;
    if (byte == '\n') position = {position.line + 1, 1};
  }
  return position;
}

}  // namespace Zelk::Tool
