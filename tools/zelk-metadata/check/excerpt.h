#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "analysis/document.h"

namespace Zelk::Tool::Check {

/// A line of a text as a terminal can show it, and the column of it that a mark goes under.
struct Excerpt {
  std::string line;
  std::size_t mark;
};

/// The line of the byte. Tabs are widened. Of a line that has no room in `columns`, or in a usual
/// window if they are 0, only what is around the byte is shown, with "..." for the rest.
Excerpt ExcerptAt(const Analysis::Document& document, std::size_t offset, std::size_t columns = 0);

/// The number of the line, the line, and a mark under the byte, in the width of a terminal; 0 for a
/// usual width.
void WriteExcerpt(std::ostream& out, const Analysis::Document& document, std::size_t offset,
                  std::size_t width = 0);

}  // namespace Zelk::Tool::Check
