#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "check/json_tree.h"

// The files are read key by key in a fixed order, and the first key that fails ends its object and
// most often the whole load. A walk reads a document in the same order, so it comes by the same
// messages in the same order, and knows the place of each.

namespace Zelk::Tool {

/// What a message means for the load.
enum class Severity : std::uint8_t {
  /// It is why the load failed.
  kError,
  /// Something is wrong, but the load went on without it.
  kWarning,
  /// An optional member is absent, which does no harm.
  kNote,
};

/// A message that the library is expected to give.
struct Expected {
  std::string id;
  std::string argument;
  Severity severity;
  /// Where the value begins; for the names of members, where the name does.
  std::size_t offset;
  JsonTree::Id value;
};

/// The walk through one document. Readers return false when what they read fails its object.
class Walk {
 public:
  using Id = JsonTree::Id;

  explicit Walk(const JsonTree& document) : tree(document) {}

  /// Always false.
  bool Fail(Id value, const char* message_id, const std::string& argument);
  /// The same, about the name of the member.
  bool FailName(Id member, const char* message_id, const std::string& argument);
  /// Whether the value is of the kind; the invalid-field message when not.
  bool IsOf(Id value, JsonKind kind, const char* name);
  /// The member; kNone, with the message, when there is none.
  Id Require(Id object, const char* name);

  /// What was wrong last did not end the load.
  void WentOn() { messages.back().severity = Severity::kWarning; }

  const JsonTree& tree;
  std::vector<Expected> messages;
};

/// How a value is read. `name` is what messages about it say.
using Reader = bool (*)(Walk& walk, JsonTree::Id value, const char* name);

/// One key of an object of a format.
struct Key {
  const char* name;
  Reader read;
  bool optional = false;
};

/// Reads the keys of an object in their order. What is no object has none of them.
template <typename Keys>
bool ReadKeys(Walk& walk, JsonTree::Id object, const Keys& keys) {
  for (const Key& key : keys) {
    const JsonTree::Id value = walk.Require(object, key.name);
    if (value == JsonTree::kNone) {
      if (!key.optional) return false;
      walk.messages.back().severity = Severity::kNote;
    } else if (!key.read(walk, value, key.name)) {
      return false;
    }
  }
  return true;
}

/// Any string.
bool Text(Walk& walk, JsonTree::Id value, const char* name);

/// Whatever it is; it is looked at elsewhere.
bool Anything(Walk& walk, JsonTree::Id value, const char* name);

/// An object with keys of its own.
template <const auto& kKeys>
bool Object(Walk& walk, JsonTree::Id value, const char* name) {
  return walk.IsOf(value, JsonKind::kObject, name) && ReadKeys(walk, value, kKeys);
}

/// An element with keys of its own. What is no object is missing its first key.
template <const auto& kKeys>
bool Element(Walk& walk, JsonTree::Id value, const char* /*name*/) {
  return ReadKeys(walk, value, kKeys);
}

/// An array. Its first bad element ends it.
template <Reader kElement>
bool ArrayOf(Walk& walk, JsonTree::Id value, const char* name) {
  if (!walk.IsOf(value, JsonKind::kArray, name)) return false;
  for (auto id = walk.tree[value].first_child; id != JsonTree::kNone; id = walk.tree[id].next) {
    if (!kElement(walk, id, name)) return false;
  }
  return true;
}

template <const auto& kKeys>
constexpr Reader kList = &ArrayOf<&Element<kKeys>>;

/// The text as enumerators are written.
std::string Upper(const std::string& text);

/// The position of the text among the enumerators of `E`, upper and lower case alike; E::UNKNOWN
/// when it is none of them.
template <typename E>
int EnumeratorOf(const std::string& text) {
  const std::string upper = Upper(text);
  for (int value = 0; E::Strings::values[value] != nullptr; ++value) {
    if (upper == E::Strings::values[value]) return value;
  }
  return E::UNKNOWN;
}

inline constexpr char kNoAlias[] = "";

/// One of the texts of an enumeration, or the one other word that is taken for one of them.
template <typename E, const auto& kAlias = kNoAlias>
bool Enumeration(Walk& walk, JsonTree::Id value, const char* name) {
  if (!walk.IsOf(value, JsonKind::kString, name)) return false;
  const std::string& text = walk.tree[value].text;
  const bool is_alias = *kAlias != '\0' && Upper(text) == kAlias;
  if (is_alias || EnumeratorOf<E>(text) != E::UNKNOWN) return true;
  return walk.Fail(value, "zelk.metadata.json.invalid.enum.value", name);
}

}  // namespace Zelk::Tool
