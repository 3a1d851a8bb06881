#include "language/questions.h"

#include <algorithm>

namespace Zelk::Tool {
namespace {

/// A word with dots as two ids.
Ids Split(const std::string& word) {
  const std::size_t dot = word.rfind('.');
  if (dot == std::string::npos) return {word};
  return {word.substr(0, dot), word.substr(dot + 1)};
}

bool IsKnown(const Ids& ids, const std::vector<FoundKind>& kinds) {
  return std::any_of(kinds.begin(), kinds.end(), [&ids](const FoundKind& found) {
    return ids.size() >= found.ids.min && found.kind->get.call(ids).answer.has_value();
  });
}

/// Whether the word is the first of the ids of something.
bool IsFirstId(const std::string& word, const std::vector<FoundKind>& kinds) {
  return std::any_of(kinds.begin(), kinds.end(), [&word](const FoundKind& found) {
    const Names names = found.NamesAt(0, {});
    return std::find(names.begin(), names.end(), word) != names.end();
  });
}

}  // namespace

Ids IdsOfOne(const Ids& words, const std::vector<FoundKind>& kinds) {
  const bool is_joined = words.size() == 1 && !kinds.empty() && kinds.front().kind->MayJoin();
  return is_joined ? Split(words.front()) : words;
}

std::vector<Ids> IdsOfEach(const Ids& words, const std::vector<FoundKind>& kinds) {
  const FoundKind& kind = kinds.front();
  std::vector<Ids> things;
  for (std::size_t at = 0; at < words.size();) {
    const Ids one = IdsOfOne({words[at]}, kinds);
    const bool has_next = at + 1 < words.size();
    const Ids two = has_next ? Ids{words[at], words[at + 1]} : Ids{};
    bool takes_two = false;
    if (kind.kind->MayJoin()) {
      takes_two = has_next && (IsKnown(two, kinds) || !IsKnown(one, kinds));
      if (!takes_two && (one.size() < 2 || IsFirstId(words[at], kinds))) return {};
    } else if (kind.ids.max == 2) {
      takes_two = has_next && !IsKnown(one, kinds) && IsKnown(two, kinds);
    }
    at += takes_two ? 2 : 1;
    things.push_back(takes_two ? two : one);
  }
  return things;
}

}  // namespace Zelk::Tool
