#pragma once

#include <string>

#include "analysis/document.h"

namespace Zelk::Testing {

/// The value with a line for each member and element, and the members in the reverse order.
inline std::string Rewritten(const Analysis::Document& document, Analysis::NodeId node) {
  const auto& value = document[node];
  const std::string key(document.Text().substr(value.key_begin, value.key_end - value.key_begin));
  std::string text = key.empty() ? "" : key + "\n :\t";
  const bool is_object = value.kind == Analysis::NodeKind::kObject;
  if (!is_object && value.kind != Analysis::NodeKind::kArray) {
    return text.append(document.Text().substr(value.begin, value.end - value.begin));
  }
  std::string parts;
  for (Analysis::NodeId part = value.first_child; part != Analysis::kNoNode;
       part = document[part].next) {
    const std::string comma = parts.empty() ? "" : ",";
    const std::string one = "\n\n  " + Rewritten(document, part);
    parts = is_object ? one + comma + parts : parts + comma + one;
  }
  return text + (is_object ? "{" : "[") + parts + (is_object ? "\n}" : " ]");
}

inline std::string Rewritten(const std::string& text) {
  const Analysis::Document document(text);
  return Rewritten(document, Analysis::kRootNode);
}

}  // namespace Zelk::Testing
