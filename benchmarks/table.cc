#include "table.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace Zelk::Benchmarks {
namespace {

constexpr std::size_t kColumns = 7;
using Cells = std::array<std::string, kColumns>;

std::string ThreeDigits(double value) {
  char text[32];
  const int decimals = value < 9.995 ? 2 : value < 99.95 ? 1 : 0;
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string GoalText(const Table::Row& row) {
  switch (row.goal.kind) {
    case Goal::Kind::kAtMost:
      return "<= " + ThreeDigits(row.goal.value) + row.unit;
    case Goal::Kind::kAtLeast:
      return ">= " + ThreeDigits(row.goal.value) + row.unit;
    case Goal::Kind::kNone:
      break;
  }
  return "";
}

std::string MarkText(const Table::Row& row) {
  if (row.goal.kind == Goal::Kind::kNone) return "";
  return row.goal.IsMet(row.value) ? "met" : "MISSED";
}

Cells CellsOf(const Table::Row& row) {
  return {row.section,   row.name,     row.one, row.other, ThreeDigits(row.value) + row.unit,
          GoalText(row), MarkText(row)};
}

std::string Line(const Cells& cells, const std::array<std::size_t, kColumns>& widths) {
  std::string line;
  for (std::size_t column = 0; column < kColumns; ++column) {
    const std::string blanks(widths[column] - cells[column].size(), ' ');
    const bool is_number = column >= 2 && column <= 5;
    line += "| " + (is_number ? blanks + cells[column] : cells[column] + blanks) + ' ';
  }
  return line + "|\n";
}

}  // namespace

bool Goal::IsMet(double reached) const {
  return kind == Kind::kNone || (kind == Kind::kAtMost ? reached <= value : reached >= value);
}

std::string Table::Text() const {
  std::vector<Cells> lines = {{"row", "of what", "ours", "beside", "value", "goal", "mark"}};
  for (const Row& row : rows_) lines.push_back(CellsOf(row));
  std::array<std::size_t, kColumns> widths{};
  Cells rule;
  for (std::size_t column = 0; column < kColumns; ++column) {
    for (const Cells& cells : lines) {
      widths[column] = std::max(widths[column], cells[column].size());
    }
    rule[column].assign(widths[column], '-');
  }
  lines.insert(lines.begin() + 1, rule);
  std::string text;
  for (const Cells& cells : lines) text += Line(cells, widths);
  return text;
}

std::size_t Table::Missed() const {
  return static_cast<std::size_t>(std::count_if(
      rows_.begin(), rows_.end(), [](const Row& row) { return !row.goal.IsMet(row.value); }));
}

std::string SecondsText(double seconds) {
  constexpr std::array<const char*, 4> kUnits = {" s", " ms", " us", " ns"};
  std::size_t unit = 0;
  while (seconds < 0.9995 && unit + 1 < kUnits.size()) {
    seconds *= 1e3;
    ++unit;
  }
  return ThreeDigits(seconds) + kUnits[unit];
}

std::string BytesText(double bytes) {
  return ThreeDigits(bytes / 1e6) + " MB";
}

}  // namespace Zelk::Benchmarks
