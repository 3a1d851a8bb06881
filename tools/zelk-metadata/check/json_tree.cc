#include "check/json_tree.h"

#include <algorithm>
#include <cstring>

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace Zelk::Tool {

/// Takes the reader's events. A token begins at the first byte behind the token before it that is
/// neither blank nor a separator. The event comes right behind its token, but before a bracket.
class JsonTree::Builder : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Builder> {
 public:
  Builder(std::string_view text, const rapidjson::MemoryStream& stream, JsonTree& tree)
      : text_(text), stream_(stream), values_(tree.values_) {}

  bool Default() { return Add(JsonKind::kOther, {}); }

  bool String(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    return Add(JsonKind::kString, std::string(text, size));
  }

  bool Key(const char* text, rapidjson::SizeType size, bool /*copy*/) {
    name_offset_ = TokenStart();
    name_.assign(text, size);
    has_name_ = true;
    end_ = stream_.Tell();
    return true;
  }

  bool StartObject() { return Open(JsonKind::kObject); }

  bool EndObject(rapidjson::SizeType /*members*/) { return Close(); }

  bool StartArray() { return Open(JsonKind::kArray); }

  bool EndArray(rapidjson::SizeType /*elements*/) { return Close(); }

 private:
  struct Level {
    Id container;
    Id last_child = kNone;
    std::uint32_t children = 0;
  };

  std::size_t TokenStart() const { return text_.find_first_not_of(" \t\r\n,:", end_); }

  bool Open(JsonKind kind) {
    const auto id = static_cast<Id>(values_.size());
    if (!Add(kind, {})) return false;
    end_ = stream_.Tell() + 1;
    levels_.push_back({id});
    return true;
  }

  bool Close() {
    levels_.pop_back();
    end_ = stream_.Tell() + 1;
    return true;
  }

  /// False when the ids have run out.
  bool Add(JsonKind kind, std::string text) {
    if (values_.size() >= kNone) return false;
    const auto id = static_cast<Id>(values_.size());
    const std::size_t offset = TokenStart();
    Value value{kind,  kNone,          kNone, kNone, 0, offset, has_name_ ? name_offset_ : offset,
                name_, std::move(text)};
    if (!levels_.empty()) Attach(id, value);
    values_.push_back(std::move(value));
    has_name_ = false;
    name_.clear();
    end_ = stream_.Tell();
    return true;
  }

  void Attach(Id id, Value& value) {
    Level& level = levels_.back();
    value.parent = level.container;
    value.index = level.children++;
    Id& link = level.last_child == kNone ? values_[level.container].first_child
                                         : values_[level.last_child].next;
    link = id;
    level.last_child = id;
  }

  std::string_view text_;
  const rapidjson::MemoryStream& stream_;
  std::vector<Value>& values_;
  std::vector<Level> levels_;
  /// Where the last token ended.
  std::size_t end_ = 0;
  std::size_t name_offset_ = 0;
  std::string name_;
  bool has_name_ = false;
};

std::optional<JsonTree> JsonTree::Parse(std::string_view text) {
  JsonTree tree;
  // This stream and no other: the reader works on copies of some, whose position is then not known.
  rapidjson::MemoryStream stream(text.data(), text.size());
  Builder builder(text, stream, tree);
  rapidjson::Reader reader;
  // Iterative, because a hostile file may nest deeper than the stack reaches.
  if (reader.Parse<rapidjson::kParseIterativeFlag>(stream, builder).IsError()) return std::nullopt;
  return tree;
}

JsonTree::Id JsonTree::Find(Id object, const char* name) const {
  if (values_[object].kind != JsonKind::kObject) return kNone;
  Id member = values_[object].first_child;
  while (member != kNone && std::strcmp(values_[member].name.c_str(), name) != 0) {
    member = values_[member].next;
  }
  return member;
}

std::string JsonTree::Pointer(Id id) const {
  std::vector<std::string> steps;
  for (; values_[id].parent != kNone; id = values_[id].parent) {
    const bool is_element = values_[values_[id].parent].kind == JsonKind::kArray;
    std::string step = "/";
    for (const char byte : is_element ? std::to_string(values_[id].index) : values_[id].name) {
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

}  // namespace Zelk::Tool
