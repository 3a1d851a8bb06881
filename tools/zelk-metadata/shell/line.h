#pragma once

#include <string>
#include <vector>

namespace Zelk::Tool::Shell {

/// A line of a session as its words.
struct SplitLine {
  std::vector<std::string> words;

  /// Where the last word begins in the line; the line's end, if the line ends between words.
  std::size_t last_word = 0;

  /// Whether a quote is opened that is not closed.
  bool is_open = false;

  /// Whether it ends in a comment.
  bool is_comment = false;
};

/// Blanks separate words unless they are in 'quotes' or "quotes" or after a backslash; what begins
/// with '#' is not read on. As shells do, "~/" at the beginning of a word or after '=' is made the
/// home folder, unless it is quoted.
SplitLine Split(const std::string& line);

/// The text as one word of a line.
std::string Quoted(const std::string& word);

}  // namespace Zelk::Tool::Shell
