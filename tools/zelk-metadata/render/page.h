#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "render/terminal.h"

namespace Zelk::Tool::Render {

/// A readable page, written line by line. Whatever is given to it is made harmless for the terminal
/// (see ForTerminal) on its way out.
class Page {
 public:
  /// Text is wrapped to the terminal's width, and headings are bold where it has colours. Words,
  /// such as names, are never broken, so that they can be copied.
  explicit Page(std::ostream& out, const Terminal& terminal = {});

  /// The line that says what the page is about.
  void Title(const std::string& text);

  /// What the next title begins with.
  void SetTitlePrefix(const std::string& prefix) { title_prefix_ = prefix; }

  /// One line, indented by `level` steps; a line end within the text is shown as a control
  /// character. If it is wrapped, the rest is indented more.
  void Line(std::size_t level, const std::string& text);

  /// A text as its author broke it into lines; nothing for an empty one.
  void Paragraph(std::size_t level, const std::string& text);

  /// Names with a description each, in two columns.
  void Pairs(std::size_t level, const std::vector<std::pair<std::string, std::string>>& pairs);

  /// An empty line and a heading.
  void Heading(const std::string& text);

  /// A heading and a text, which is wrapped in files and pipes, too.
  void Section(const std::string& heading, const std::string& text);

 private:
  void WriteWrapped(std::size_t level, const std::string& text, std::size_t hanging);

  std::ostream& out_;
  Terminal terminal_;
  std::string title_prefix_;
};

/// The name of the program.
constexpr char kProgramName[] = "zelk-metadata";

/// One line on standard error, in the form that all complaints of the program have.
void PrintError(std::ostream& err, const std::string& text, const Terminal& terminal = {});

}  // namespace Zelk::Tool::Render
