#include "render/table.h"

#include <algorithm>
#include <ostream>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Render {
namespace {

constexpr std::size_t kGap = 2;
constexpr std::size_t kLeastRoom = 20;
constexpr std::size_t kStackedIndent = 4;

using Cells = std::vector<std::string>;

/// Of all columns but the last.
std::vector<std::size_t> Widths(const std::vector<Cells>& rows) {
  std::vector<std::size_t> widths(rows.front().size() - 1, 0);
  for (const Cells& row : rows) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], Columns(row[i]));
    }
  }
  return widths;
}

/// The cells before the last one, each filled up to its column's width.
std::string Beginning(const Cells& row, const std::vector<std::size_t>& widths) {
  std::string text;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    text += row[i] + std::string(widths[i] - Columns(row[i]) + kGap, ' ');
  }
  return text;
}

void WriteLine(std::ostream& out, const Terminal& terminal, std::string text, bool is_heading) {
  text.erase(text.find_last_not_of(' ') + 1);
  out << (is_heading ? Styled(terminal, Style::kBold, text) : text) << '\n';
}

}  // namespace

Table::Table(std::vector<std::string> headings) {
  rows_.push_back(std::move(headings));
}

void Table::Add(std::vector<std::string> cells) {
  std::transform(cells.begin(), cells.end(), cells.begin(), ForTerminal);
  rows_.push_back(std::move(cells));
}

void Table::Write(std::ostream& out, const Terminal& terminal) const {
  const std::vector<std::size_t> widths = Widths(rows_);
  std::size_t indent = 0;
  for (const std::size_t width : widths) indent += width + kGap;
  const bool roomy = terminal.width == 0 || terminal.width >= indent + kLeastRoom;
  if (!roomy) indent = kStackedIndent;
  // A column alone is one of names, which are never broken.
  const bool wraps = !widths.empty() && terminal.width > indent;
  const std::size_t room = wraps ? terminal.width - indent : 0;
  for (const Cells& row : rows_) {
    std::string text = Beginning(row, widths);
    const bool is_heading = &row == &rows_.front();
    // Without room beside the other columns, the last one is below them.
    if (!roomy && !widths.empty()) {
      for (const std::string& line : Wrapped(text, terminal.width, 2 * kStackedIndent)) {
        WriteLine(out, terminal, line, is_heading);
      }
      if (is_heading || row.back().empty()) continue;
      text = std::string(indent, ' ');
    }
    for (const std::string& line : Wrapped(row.back(), room)) {
      WriteLine(out, terminal, text + line, is_heading);
      text = std::string(indent, ' ');
    }
  }
}

void Table::WritePlain(std::ostream& out) const {
  for (auto row = rows_.begin() + 1; row != rows_.end(); ++row) {
    for (std::size_t i = 0; i < row->size(); ++i) out << (i == 0 ? "" : "\t") << (*row)[i];
    out << '\n';
  }
}

}  // namespace Zelk::Tool::Render
