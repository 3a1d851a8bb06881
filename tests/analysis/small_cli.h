#pragma once

#include <string>
#include <utility>
#include <vector>

// Short ways to write CLI files.

namespace Zelk::Testing {

/// The texts with commas between them.
inline std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) list += (list.empty() ? "" : ",\n") + text;
  return list;
}

struct OptionText {
  std::string name;
  std::string field;
  std::string type = "LONG";
  std::string generic = "none";
  /// Without one if it is empty.
  std::string letter = {};
  std::string description = {};
};

inline std::string Text(const OptionText& option) {
  return R"({"long_option": ")" + option.name +
         (option.letter.empty() ? "" : R"(", "short_option": ")" + option.letter) +
         R"(", "field_name": ")" + option.field + R"(", "description": ")" + option.description +
         R"(", "type": ")" + option.type + R"(", "generic": ")" + option.generic + R"("})";
}

struct CommandText {
  std::string path;
  std::string name;
  std::vector<OptionText> options = {};
  std::string operation = "start";
  /// More members of "node_metadata", each with a comma in front.
  std::string members = {};
  std::string description = {};
};

inline std::string Text(const CommandText& command) {
  std::vector<std::string> options;
  for (const OptionText& option : command.options) options.push_back(Text(option));
  return R"({"type": "command", "path": ")" + command.path + R"(", "name": ")" + command.name +
         R"(", "description": ")" + command.description +
         R"(", "node_metadata": {"service_id": "c.p.s", "operation_id": ")" + command.operation +
         R"(", "options": [)" + Listed(options) + "]" + command.members + "}}";
}

inline std::string NamespaceText(const std::string& path, const std::string& name,
                                 const std::string& description = "") {
  return R"({"type": "namespace", "path": ")" + path + R"(", "name": ")" + name +
         R"(", "description": ")" + description + R"("})";
}

inline std::string CliFile(const std::vector<std::string>& nodes) {
  return R"({"cli": [)" + Listed(nodes) + "]}";
}

/// A file with one command.
inline std::string OneCommand(const CommandText& command) {
  return CliFile(std::vector<std::string>{Text(command)});
}

}  // namespace Zelk::Testing
