#include "check/formats.h"

namespace Zelk::Tool {
namespace {

constexpr char kInvalidField[] = "zelk.metadata.cli.json.invalid.field";

/// An object about which, when it is none, the message says a word of its own.
template <const auto& kKeys, const auto& kWord>
bool ObjectCalled(Walk& walk, JsonTree::Id value, const char* /*name*/) {
  if (walk.tree[value].kind != JsonKind::kObject) return walk.Fail(value, kInvalidField, kWord);
  return ReadKeys(walk, value, kKeys);
}

constexpr char kPath[] = "path";
constexpr char kOptionsEntry[] = "options_entry";
constexpr char kOutputFields[] = "output_fields";

constexpr Key kOutputField[] = {
    {"field_name", Text},
    {"display_name", Text},
};

constexpr Key kOutput[] = {
    {"structure_id", Text},
    {"output_fields", ArrayOf<ObjectCalled<kOutputField, kOutputFields>>, true},
};

constexpr Key kOption[] = {
    {"long_option", Text}, {"short_option", Text, true},
    {"field_name", Text},  {"description", Text},
    {"type", Text},        {"generic", Text},
};

constexpr Key kNodeMetadata[] = {
    {"service_id", Text},
    {"operation_id", Text},
    {"formatter", Text, true},
    {"options", ArrayOf<ObjectCalled<kOption, kOptionsEntry>>, true},
    {"output_field_list", ArrayOf<ObjectCalled<kOutput, kOptionsEntry>>, true},
};

constexpr Key kType[] = {{"type", Text}};

constexpr Key kNamespace[] = {
    {"path", Text},
    {"name", Text},
    {"description", Text},
};

constexpr Key kCommand[] = {
    {"path", Text},
    {"name", Text},
    {"description", Text},
    {"node_metadata", ObjectCalled<kNodeMetadata, kPath>},
};

bool ReadNode(Walk& walk, JsonTree::Id node) {
  if (!ReadKeys(walk, node, kType)) return false;
  const JsonTree::Id type = walk.tree.Find(node, "type");
  if (walk.tree[type].text == "command") return ReadKeys(walk, node, kCommand);
  if (walk.tree[type].text == "namespace") return ReadKeys(walk, node, kNamespace);
  return walk.Fail(type, "zelk.metadata.cli.json.invalid.node.type", "type");
}

}  // namespace

bool WalkCli(Walk& walk) {
  const JsonTree::Id nodes = walk.Require(JsonTree::kRoot, "cli");
  if (nodes == JsonTree::kNone) return false;
  if (walk.tree[nodes].kind != JsonKind::kArray) return walk.Fail(nodes, kInvalidField, "cli");
  for (auto node = walk.tree[nodes].first_child; node != JsonTree::kNone;
       node = walk.tree[node].next) {
    if (!ReadNode(walk, node)) return false;
  }
  return true;
}

}  // namespace Zelk::Tool
