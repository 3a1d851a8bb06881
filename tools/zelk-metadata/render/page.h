#pragma once

#include <iosfwd>
#include <string>

namespace Zelk::Tool {

/// A readable page, written line by line. Whatever is given to it is made harmless for the terminal
/// (see ForTerminal) on its way out.
class Page {
 public:
  explicit Page(std::ostream& out);

  /// One line, indented by `level` steps; a line end within the text is shown as a control
  /// character.
  void Line(std::size_t level, const std::string& text);

  /// A text as its author broke it into lines; nothing for an empty one.
  void Paragraph(std::size_t level, const std::string& text);

  /// An empty line and a heading.
  void Heading(const std::string& text);

 private:
  std::ostream& out_;
};

/// One line on standard error, in the form that all complaints of the program have.
void PrintError(std::ostream& err, const std::string& text);

}  // namespace Zelk::Tool
