#include "render/layout.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

#include "render/utf8.h"

namespace Zelk::Tool::Render {
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

/// What stays with the character before it: joiners, marks, and signs that close.
bool IsAttached(std::uint32_t code) {
  constexpr std::array<Range, 7> kClosing{{{0x3001, 0x3002},
                                           {0x3009, 0x3009},
                                           {0x300b, 0x300b},
                                           {0x300d, 0x300d},
                                           {0xff01, 0xff01},
                                           {0xff09, 0xff0e},
                                           {0xff1a, 0xff1f}}};
  return ColumnsOf(code) == 0 || IsIn(kClosing, code);
}

/// A part of a text that is not broken.
struct Piece {
  std::string text;
  std::size_t columns = 0;
  bool is_after_blank = false;
};

/// The words of a text, those of ideographs character by character.
std::vector<Piece> PiecesOf(std::string_view text) {
  constexpr std::uint32_t kJoiner = 0x200d;
  std::vector<Piece> pieces;
  std::uint32_t before = ' ';
  ForEachCharacter(text, [&](std::uint32_t code, std::string_view bytes) {
    const bool is_break =
        (ColumnsOf(code) == 2 || ColumnsOf(before) == 2) && !IsAttached(code) && before != kJoiner;
    if (code != ' ' && (before == ' ' || is_break)) pieces.push_back({"", 0, before == ' '});
    if (code != ' ') {
      pieces.back().text += bytes;
      pieces.back().columns += ColumnsOf(code);
    }
    before = code;
  });
  return pieces;
}

}  // namespace

std::size_t Columns(const std::string& text) {
  std::size_t columns = 0;
  ForEachCharacter(
      text, [&columns](std::uint32_t code, std::string_view) { columns += ColumnsOf(code); });
  return columns;
}

std::string Cut(const std::string& text, std::size_t width) {
  if (width == 0 || Columns(text) <= width) return text;
  constexpr std::string_view kDots = "...";
  std::string cut;
  std::size_t columns = kDots.size();
  ForEachCharacter(text, [&](std::uint32_t code, std::string_view bytes) {
    columns += ColumnsOf(code);
    if (columns <= width) cut += bytes;
  });
  return cut.append(kDots);
}

std::vector<std::string> Wrapped(const std::string& text, std::size_t width, std::size_t hanging) {
  if (width == 0 || Columns(text) <= width) return {text};
  const std::size_t indent = std::min(text.find_first_not_of(' '), text.size());
  std::vector<std::string> lines;
  std::size_t columns = 0;
  for (const Piece& piece : PiecesOf(text)) {
    const std::size_t gap = piece.is_after_blank ? 1 : 0;
    if (lines.empty() || columns + gap + piece.columns > width) {
      columns = lines.empty() ? indent : indent + hanging;
      lines.emplace_back(columns, ' ');
    } else if (piece.is_after_blank) {
      lines.back() += ' ';
      ++columns;
    }
    lines.back() += piece.text;
    columns += piece.columns;
  }
  if (lines.empty()) lines.emplace_back();
  return lines;
}

std::vector<std::string> InColumns(const std::vector<std::string>& words, std::size_t width) {
  constexpr std::size_t kGap = 2;
  std::size_t widest = 0;
  for (const std::string& word : words) widest = std::max(widest, Columns(word));
  const std::size_t columns = std::max<std::size_t>(1, (width + kGap) / (widest + kGap));
  std::vector<std::string> lines((words.size() + columns - 1) / columns);
  for (std::size_t i = 0; i < words.size(); ++i) {
    lines[i % lines.size()] += words[i];
    const bool is_last = i + lines.size() >= words.size();
    if (!is_last) lines[i % lines.size()].append(widest - Columns(words[i]) + kGap, ' ');
  }
  return lines;
}

}  // namespace Zelk::Tool::Render
