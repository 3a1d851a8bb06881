#include "host/input_file.h"

#include <array>
#include <istream>

namespace Zelk::Tool {

std::shared_ptr<const InputFile> InputFile::Copy(std::istream& in) {
  std::FILE* const file = std::tmpfile();
  if (file == nullptr) return nullptr;
  const std::shared_ptr<const InputFile> copy(new InputFile(file));
  std::array<char, 65536> chunk{};
  while (in.read(chunk.data(), chunk.size()) || in.gcount() > 0) {
    const auto size = static_cast<std::size_t>(in.gcount());
    if (std::fwrite(chunk.data(), 1, size, file) != size) return nullptr;
  }
  return std::fflush(file) == 0 ? copy : nullptr;
}

InputFile::InputFile(std::FILE* file) : file_(file) {}

InputFile::~InputFile() {
  std::fclose(file_);
}

std::string InputFile::Path() const {
  return "/dev/fd/" + std::to_string(fileno(file_));
}

}  // namespace Zelk::Tool
