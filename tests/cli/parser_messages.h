#pragma once

#include <string>
#include <vector>

#include "support/message_texts.h"

// What the CLI parser says of itself, ids spelt out.

namespace Zelk::Testing {

inline std::string CliInvalidField(const std::string& word) {
  return MessageText("zelk.metadata.cli.json.invalid.field", {word});
}

inline std::string CliInvalidNodeType() {
  return MessageText("zelk.metadata.cli.json.invalid.node.type", {"type"});
}

inline std::string CliParseError(const std::string& code, const std::string& offset) {
  return MessageText("zelk.metadata.cli.parse.error", {code, offset});
}

/// Values of every JSON type but one.
inline std::vector<std::string> JsonValuesBut(const std::string& type) {
  std::vector<std::string> values = {"null", "true", "false", "0", "-1.5"};
  if (type != "string") values.insert(values.end(), {R"("")", R"("foo")"});
  if (type != "array") values.insert(values.end(), {"[]", "[{}]", R"(["foo"])"});
  if (type != "object") values.insert(values.end(), {"{}", R"({"foo": "bar"})"});
  return values;
}

}  // namespace Zelk::Testing
