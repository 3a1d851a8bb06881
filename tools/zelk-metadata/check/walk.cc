#include "check/walk.h"

#include <locale>

#include <boost/algorithm/string/case_conv.hpp>

namespace Zelk::Tool {

bool Walk::Fail(Id value, const char* message_id, const std::string& argument) {
  messages.push_back({message_id, argument, Severity::kError, tree[value].offset, value});
  return false;
}

bool Walk::FailName(Id member, const char* message_id, const std::string& argument) {
  messages.push_back({message_id, argument, Severity::kError, tree[member].name_offset, member});
  return false;
}

bool Walk::IsOf(Id value, JsonKind kind, const char* name) {
  return tree[value].kind == kind || Fail(value, "zelk.metadata.json.invalid.field", name);
}

Walk::Id Walk::Require(Id object, const char* name) {
  const Id found = tree.Find(object, name);
  if (found == JsonTree::kNone) Fail(object, "zelk.metadata.json.missing.field", name);
  return found;
}

bool Text(Walk& walk, JsonTree::Id value, const char* name) {
  return walk.IsOf(value, JsonKind::kString, name);
}

bool Anything(Walk& /*walk*/, JsonTree::Id /*value*/, const char* /*name*/) {
  return true;
}

std::string Upper(const std::string& text) {
  return boost::algorithm::to_upper_copy(text, std::locale());
}

}  // namespace Zelk::Tool
