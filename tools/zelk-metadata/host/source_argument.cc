#include "host/source_argument.h"

#include <filesystem>

namespace Zelk::Tool {

SourceArgument ParseSourceArgument(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals != std::string::npos && equals != 0) {
    std::string id = text.substr(0, equals);
    if (id.find('/') == std::string::npos) return {std::move(id), text.substr(equals + 1)};
  }
  return {DefaultSourceId(text), text};
}

std::string DefaultSourceId(const std::string& path) {
  return std::filesystem::path(path).stem().string();
}

}  // namespace Zelk::Tool
