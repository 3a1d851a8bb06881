#pragma once

#include <string>
#include <utility>

#include "host/domain.h"

namespace Zelk::Tool {

/// Writes an outline entry by entry.
class OutlineWriter {
 public:
  /// A kind: found by its own ids.
  void Kind(std::size_t depth, std::string kind, Ids ids, std::string documentation,
            int place = 0) {
    Add(depth, std::move(kind), std::move(ids), std::move(documentation), false, place);
  }

  /// A part: found only through its parent.
  void Part(std::size_t depth, std::string kind, Ids ids, std::string documentation) {
    Add(depth, std::move(kind), std::move(ids), std::move(documentation), true, 0);
  }

  /// A kind whose displayed name differs from its last id.
  void Named(std::size_t depth, std::string kind, Ids ids, std::string name,
             std::string documentation) {
    Kind(depth, std::move(kind), std::move(ids), std::move(documentation));
    outline_.back().name = std::move(name);
  }

  Outline Take() { return std::move(outline_); }

 private:
  void Add(std::size_t depth, std::string kind, Ids ids, std::string documentation, bool is_part,
           int place) {
    std::string name = ids.back();
    outline_.push_back({depth,
                        {std::move(kind), std::move(ids)},
                        std::move(name),
                        std::move(documentation),
                        is_part,
                        place});
  }

  Outline outline_;
};

}  // namespace Zelk::Tool
