#pragma once

#include <cstddef>
#include <string>

#include "analysis/document.h"

namespace Zelk::Tool::Check {

/// A line of a text as a terminal can show it, and the column of it that a mark goes under.
struct Excerpt {
  std::string line;
  std::size_t mark;
};

/// The line of the byte. Tabs are widened; of a long line only what is around the byte is shown,
/// with "..." for the rest.
Excerpt ExcerptAt(const Analysis::Document& document, std::size_t offset);

}  // namespace Zelk::Tool::Check
