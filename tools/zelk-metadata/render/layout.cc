#include "render/layout.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

using Range = std::pair<std::uint32_t, std::uint32_t>;

// Not every character of the world, but those that texts are written in: combining marks and
// joiners take no column, ideographs, Hangul, full-width forms and pictographs two.
constexpr std::array<Range, 5> kNarrowest{
    {{0x300, 0x36f}, {0x1ab0, 0x1aff}, {0x200b, 0x200f}, {0x20d0, 0x20ff}, {0xfe00, 0xfe0f}}};
constexpr std::array<Range, 8> kWidest{{{0x1100, 0x115f},
                                        {0x2e80, 0x303e},
                                        {0x3041, 0xa4cf},
                                        {0xac00, 0xd7a3},
                                        {0xf900, 0xfaff},
                                        {0xff00, 0xff60},
                                        {0x1f300, 0x1faff},
                                        {0x20000, 0x3fffd}}};

template <typename Ranges>
bool IsIn(const Ranges& ranges, std::uint32_t code) {
  return std::any_of(ranges.begin(), ranges.end(), [code](const Range& range) {
    return range.first <= code && code <= range.second;
  });
}

std::size_t ColumnsOf(std::uint32_t code) {
  if (code < 0x300) return 1;
  if (IsIn(kNarrowest, code)) return 0;
  return IsIn(kWidest, code) ? 2 : 1;
}

}  // namespace

std::size_t Columns(const std::string& text) {
  std::size_t columns = 0;
  ForEachCharacter(text, [&columns](std::uint32_t code) { columns += ColumnsOf(code); });
  return columns;
}

std::vector<std::string> Wrapped(const std::string& text, std::size_t width) {
  if (width == 0 || Columns(text) <= width) return {text};
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  const std::string indent = text.substr(0, begin);
  std::vector<std::string> lines;
  std::string line;
  std::size_t columns = 0;
  for (std::size_t at = begin; at < text.size();) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const std::string word = text.substr(at, end - at);
    const std::size_t needed = Columns(word);
    if (!line.empty() && columns + 1 + needed > width) {
      lines.push_back(std::move(line));
      line.clear();
    }
    columns = line.empty() ? begin + needed : columns + 1 + needed;
    line += (line.empty() ? indent : " ") + word;
    at = std::min(text.find_first_not_of(' ', end), text.size());
  }
  if (!line.empty() || lines.empty()) lines.push_back(std::move(line));
  return lines;
}

}  // namespace Zelk::Tool
