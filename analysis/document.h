#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Zelk::Analysis {

/// A place in a text. Both count from 1; columns count bytes.
struct Position {
  std::size_t line;
  std::size_t column;
};

using NodeId = std::uint32_t;

inline constexpr NodeId kRootNode = 0;
inline constexpr NodeId kNoNode = 0xffffffff;

enum class NodeKind : std::uint8_t { kObject, kArray, kString, kOther };

/// A JSON value and where it is in the text. Files of 4 GiB and more are never loaded, so 32 bits
/// are enough for an offset.
struct Node {
  NodeKind kind;
  /// Whether the text of the key, or of the string, has escapes.
  bool has_escaped_key;
  bool is_escaped;
  NodeId parent;
  NodeId first_child;
  NodeId next;
  /// The position among the children of the parent.
  std::uint32_t index;
  /// The bytes of the value: the first one, and the one after the last.
  std::uint32_t begin;
  std::uint32_t end;
  /// The same for the key of a member, its quotes included; both are `begin` for other values.
  std::uint32_t key_begin;
  std::uint32_t key_end;
};

/// The text of a file and its JSON values in document order. Everything is in flat vectors, so
/// values may nest to any depth and nothing recurses. The views that it returns are into the
/// document.
class Document {
 public:
  explicit Document(std::string text);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() = default;

  std::string_view Text() const { return text_; }

  /// False for a text that is not valid JSON. It has no nodes then.
  bool IsJson() const { return !nodes_.empty(); }

  const Node& operator[](NodeId id) const { return nodes_[id]; }

  /// The number of nodes. Their ids are 0 up to it.
  NodeId Size() const { return static_cast<NodeId>(nodes_.size()); }

  /// The key of a member; empty for any other value.
  std::string_view Key(NodeId id) const;

  /// The text of a string; empty for any other value.
  std::string_view String(NodeId id) const;

  /// The first member of the object with this key, or kNoNode. As in the library, a key ends at its
  /// first zero byte. A value that is not an object has no members.
  NodeId Find(NodeId object, std::string_view key) const;

  /// The JSON Pointer (RFC 6901) of the value; empty for the root.
  std::string Pointer(NodeId id) const;

  /// The position of the byte, or of the end of the text. `offset` must not be greater.
  Position PositionAt(std::size_t offset) const;

 private:
  class Builder;

  /// What the quoted text means.
  std::string_view Decoded(std::uint32_t begin, std::uint32_t end, bool is_escaped) const;

  std::string text_;
  std::vector<Node> nodes_;
  /// The texts with escapes by where they begin, in ascending order.
  std::vector<std::pair<std::uint32_t, std::string>> decoded_;
  /// Where each line begins.
  std::vector<std::size_t> lines_;
};

}  // namespace Zelk::Analysis
