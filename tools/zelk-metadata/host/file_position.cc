#include "host/file_position.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace Zelk::Tool {
namespace {

void Advance(FilePosition& position, const char* begin, const char* end) {
  for (const char* at = begin; at != end; ++at) {
    ++position.column;
    if (*at == '\n') position = {position.line + 1, 1};
  }
}

}  // namespace

std::optional<FilePosition> PositionAt(const std::string& path, std::uint64_t offset) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  if (std::filesystem::file_size(path, ignored) > kMaxFileSize) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  FilePosition position{1, 1};
  std::array<char, 65536> chunk{};
  while (offset > 0) {
    const std::uint64_t wanted = std::min<std::uint64_t>(offset, chunk.size());
    if (!file.read(chunk.data(), static_cast<std::streamsize>(wanted))) return std::nullopt;
    Advance(position, chunk.data(), chunk.data() + wanted);
    offset -= wanted;
  }
  return position;
}

}  // namespace Zelk::Tool
