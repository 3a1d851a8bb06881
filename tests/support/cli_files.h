#pragma once

#include <initializer_list>
#include <string>

// CLI files for tests. Names and texts are JSON text without its quotes.

namespace Zelk::Testing {

inline std::string NamespaceNode(const std::string& path, const std::string& name,
                                 const std::string& description = "") {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ")" + description + R"("})";
}

inline std::string CommandNode(const std::string& path, const std::string& name,
                               const std::string& description = "") {
  return R"({"type": "command", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ")" + description +
         R"(", "node_metadata": {"service_id": "", "operation_id": ""}})";
}

inline std::string CliFile(std::initializer_list<std::string> nodes) {
  std::string text;
  for (const auto& node : nodes) text += (text.empty() ? "" : ", ") + node;
  return R"({"cli": [)" + text + "]}";
}

}  // namespace Zelk::Testing
