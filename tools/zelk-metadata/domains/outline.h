#pragma once

#include <string>
#include <utility>

#include "host/domain.h"

namespace Zelk::Tool {

/// The texts as ids. Each is copied once, and not once more as in a list in braces.
template <typename... Texts>
Ids IdsFrom(const Texts&... texts) {
  Ids ids;
  ids.reserve(sizeof...(texts));
  (ids.emplace_back(texts), ...);
  return ids;
}

/// Writes an outline entry by entry.
class OutlineWriter {
 public:
  /// A kind: found by its own ids.
  void Kind(std::size_t depth, const char* kind, Ids ids, std::string documentation,
            int place = 0) {
    outline_.push_back(
        {depth, {kind, std::move(ids)}, std::move(documentation), /*is_part=*/false, place});
  }

  /// A part: found only through its parent.
  void Part(std::size_t depth, const char* kind, Ids ids, std::string documentation) {
    outline_.push_back({depth, {kind, std::move(ids)}, std::move(documentation), /*is_part=*/true});
  }

  /// A kind whose displayed name differs from its last id.
  void Named(std::size_t depth, const char* kind, Ids ids, std::string name,
             std::string documentation) {
    Kind(depth, kind, std::move(ids), std::move(documentation));
    outline_.back().shown_name = std::move(name);
  }

  Outline Take() { return std::move(outline_); }

 private:
  Outline outline_;
};

}  // namespace Zelk::Tool
