#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "render/terminal.h"

namespace Zelk::Tool::Render {

/// Rows of cells under a line of headings. What is given is made harmless for the terminal.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);

  /// As many cells as there are headings.
  void Add(std::vector<std::string> cells);

  /// For people: columns in line with each other. The last one is wrapped to the terminal's width,
  /// below the others where it has no room beside them; the others are never broken.
  void Write(std::ostream& out, const Terminal& terminal) const;

  /// For programs: no headings, one row a line, a tab between cells.
  void WritePlain(std::ostream& out) const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace Zelk::Tool::Render
