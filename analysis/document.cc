#include "analysis/document.h"

#include <algorithm>
#include <iterator>

#include <rapidjson/memorystream.h>

#include "analysis/json_heap.h"

namespace Zelk::Analysis {

/// Takes the reader's events. A token begins at the first byte after the last token that is neither
/// blank nor a separator. The event comes right after its token, but before a bracket.
class Document::Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  Builder(Document& document, const rapidjson::MemoryStream& stream)
      : document_(document), stream_(stream) {}

  bool Default() {
    Add(NodeKind::kOther);
    return true;
  }

  bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    const NodeId id = Add(NodeKind::kString);
    Node& node = document_.nodes_[id];
    node.is_escaped = KeepEscaped(node.begin, node.end, text, size);
    return true;
  }

  bool Key(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    key_begin_ = TokenBegin();
    key_end_ = TokenEnd();
    has_key_ = true;
    has_escaped_key_ = KeepEscaped(key_begin_, key_end_, text, size);
    end_ = key_end_;
    return true;
  }

  bool StartObject() { return Open(NodeKind::kObject); }

  bool EndObject(rapidjson::SizeType /*members*/) { return Close(); }

  bool StartArray() { return Open(NodeKind::kArray); }

  bool EndArray(rapidjson::SizeType /*elements*/) { return Close(); }

 private:
  struct Level {
    NodeId container;
    NodeId last_child = kNoNode;
    std::uint32_t children = 0;
  };

  std::uint32_t TokenBegin() const {
    return static_cast<std::uint32_t>(document_.text_.find_first_not_of(" \t\r\n,:", end_));
  }

  std::uint32_t TokenEnd() const { return static_cast<std::uint32_t>(stream_.Tell()); }

  /// An escape is longer than what it means, so the length shows whether the token has one.
  bool KeepEscaped(std::uint32_t begin, std::uint32_t end, const char* text, std::size_t size) {
    if (size + 2 == end - begin) return false;
    document_.decoded_.emplace_back(begin, std::string(text, size));
    return true;
  }

  bool Open(NodeKind kind) {
    levels_.push_back({Add(kind)});
    end_ = TokenEnd() + 1;
    return true;
  }

  bool Close() {
    end_ = TokenEnd() + 1;
    document_.nodes_[levels_.back().container].end = end_;
    levels_.pop_back();
    return true;
  }

  NodeId Add(NodeKind kind) {
    const auto id = document_.Size();
    const std::uint32_t begin = TokenBegin();
    end_ = TokenEnd();
    Node node{kind, has_key_ && has_escaped_key_,  false, kNoNode, kNoNode, kNoNode, 0, begin,
              end_, has_key_ ? key_begin_ : begin, begin};
    if (has_key_) node.key_end = key_end_;
    if (!levels_.empty()) Attach(id, node);
    document_.nodes_.push_back(node);
    has_key_ = false;
    return id;
  }

  void Attach(NodeId id, Node& node) {
    Level& level = levels_.back();
    node.parent = level.container;
    node.index = level.children++;
    NodeId& link = level.last_child == kNoNode ? document_.nodes_[level.container].first_child
                                               : document_.nodes_[level.last_child].next;
    link = id;
    level.last_child = id;
  }

  Document& document_;
  const rapidjson::MemoryStream& stream_;
  std::vector<Level> levels_;
  /// Where the last token ended.
  std::uint32_t end_ = 0;
  std::uint32_t key_begin_ = 0;
  std::uint32_t key_end_ = 0;
  bool has_key_ = false;
  bool has_escaped_key_ = false;
};

Document::Document(std::string text) : text_(std::move(text)), lines_{0} {
  for (std::size_t at = text_.find('\n'); at != std::string::npos; at = text_.find('\n', at + 1)) {
    lines_.push_back(at + 1);
  }
  // This stream and no other: the reader works on copies of some, whose position is then unknown.
  rapidjson::MemoryStream stream(text_.data(), text_.size());
  Builder builder(*this, stream);
  JsonReader reader;
  // Iterative, because a hostile file may nest deeper than the stack reaches.
  if (text_.size() >= kNoNode ||
      reader.Parse<rapidjson::kParseIterativeFlag>(stream, builder).IsError()) {
    nodes_.clear();
  }
  nodes_.shrink_to_fit();
  lines_.shrink_to_fit();
}

std::string_view Document::Decoded(std::uint32_t begin, std::uint32_t end, bool is_escaped) const {
  if (!is_escaped) return Text().substr(begin + 1, end - begin - 2);
  return std::lower_bound(decoded_.begin(), decoded_.end(), begin,
                          [](const auto& entry, std::uint32_t at) { return entry.first < at; })
      ->second;
}

std::string_view Document::Key(NodeId id) const {
  const Node& node = nodes_[id];
  if (node.key_begin == node.key_end) return {};
  return Decoded(node.key_begin, node.key_end, node.has_escaped_key);
}

std::string_view Document::String(NodeId id) const {
  const Node& node = nodes_[id];
  if (node.kind != NodeKind::kString) return {};
  return Decoded(node.begin, node.end, node.is_escaped);
}

NodeId Document::Find(NodeId object, std::string_view key) const {
  if (nodes_[object].kind != NodeKind::kObject) return kNoNode;
  NodeId member = nodes_[object].first_child;
  while (member != kNoNode) {
    const std::string_view found = Key(member);
    if (found.substr(0, found.find('\0')) == key) break;
    member = nodes_[member].next;
  }
  return member;
}

std::string Document::Pointer(NodeId id) const {
  std::vector<std::string> steps;
  for (; nodes_[id].parent != kNoNode; id = nodes_[id].parent) {
    const bool is_element = nodes_[nodes_[id].parent].kind == NodeKind::kArray;
    std::string step = "/";
    for (const char byte : is_element ? std::to_string(nodes_[id].index) : std::string(Key(id))) {
      if (byte == '~') {
        step += "~0";
      } else if (byte == '/') {
        step += "~1";
      } else {
        step += byte;
      }
    }
    steps.push_back(std::move(step));
  }
  std::string pointer;
  std::for_each(steps.rbegin(), steps.rend(), [&](const std::string& step) { pointer += step; });
  return pointer;
}

Position Document::PositionAt(std::size_t offset) const {
  const auto next = std::upper_bound(lines_.begin(), lines_.end(), offset);
  return {static_cast<std::size_t>(next - lines_.begin()), offset - *std::prev(next) + 1};
}

}  // namespace Zelk::Analysis
