#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/file_position.h"

namespace Zelk::Tool {

/// A line of a text as a terminal can show it, and the column of it that a mark goes under.
struct Excerpt {
  std::string line;
  std::size_t mark;
};

/// The text of a file, in which places can be shown.
class SourceText {
 public:
  explicit SourceText(std::string text);

  /// Empty for what is no regular file and for what cannot be read.
  static std::optional<SourceText> Read(const std::string& path);

  const std::string& Text() const { return text_; }

  /// The line and the column of the byte. The end of the text is a place, too; `offset` must not be
  /// behind it.
  FilePosition PositionAt(std::size_t offset) const;

  /// The line of the byte. Tabs are widened; of a long line only what is around the byte is shown,
  /// with "..." for the rest.
  Excerpt ExcerptAt(std::size_t offset) const;

 private:
  std::string text_;
  /// Where each line begins.
  std::vector<std::size_t> lines_;
};

}  // namespace Zelk::Tool
