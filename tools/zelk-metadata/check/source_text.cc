#include "check/source_text.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool {
namespace {

constexpr char kCut[] = "...";
constexpr char kTab[] = "    ";
constexpr std::size_t kColumnsBefore = 48;
constexpr std::size_t kColumns = 96;
/// More than any window takes: of a line of megabytes no more is looked at.
constexpr std::size_t kBytes = 4096;

bool Continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}

/// The text of each character as it is shown.
std::vector<std::string> Characters(std::string_view bytes) {
  std::vector<std::string> characters;
  while (!bytes.empty()) {
    std::size_t size = 1;
    while (size < bytes.size() && size < 4 && Continues(bytes[size])) ++size;
    const std::string character(bytes.substr(0, size));
    characters.push_back(character == "\t" ? kTab : ForTerminal(character));
    bytes.remove_prefix(size);
  }
  return characters;
}

/// As many of the characters as `columns` have room for, joined.
template <typename Iterator, typename Join>
std::string Fitting(Iterator begin, Iterator end, std::size_t columns, const Join& join) {
  std::string text;
  for (; begin != end; ++begin) {
    const std::size_t needed = Columns(*begin);
    if (needed > columns) return join(text, kCut);
    columns -= needed;
    text = join(text, *begin);
  }
  return text;
}

std::string Before(std::string_view bytes) {
  if (bytes.size() > kBytes) bytes.remove_prefix(bytes.size() - kBytes);
  const std::vector<std::string> characters = Characters(bytes);
  return Fitting(
      characters.rbegin(), characters.rend(), kColumnsBefore,
      [](const std::string& text, const std::string& character) { return character + text; });
}

std::string From(std::string_view bytes, std::size_t columns) {
  const std::vector<std::string> characters = Characters(bytes.substr(0, kBytes));
  return Fitting(
      characters.begin(), characters.end(), columns,
      [](const std::string& text, const std::string& character) { return text + character; });
}

}  // namespace

SourceText::SourceText(std::string text) : text_(std::move(text)), lines_{0} {
  for (std::size_t at = text_.find('\n'); at != std::string::npos; at = text_.find('\n', at + 1)) {
    lines_.push_back(at + 1);
  }
}

std::optional<SourceText> SourceText::Read(const std::string& path) {
  std::error_code ignored;
  // Opening a pipe would wait for a writer.
  if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  // Of an empty file there is nothing to take, which would count as a failure.
  if (file.peek() != std::ifstream::traits_type::eof()) text << file.rdbuf();
  return SourceText(text.str());
}

FilePosition SourceText::PositionAt(std::size_t offset) const {
  const auto next = std::upper_bound(lines_.begin(), lines_.end(), offset);
  return {static_cast<std::uint64_t>(next - lines_.begin()), offset - *std::prev(next) + 1};
}

Excerpt SourceText::ExcerptAt(std::size_t offset) const {
  const std::size_t begin = *std::prev(std::upper_bound(lines_.begin(), lines_.end(), offset));
  std::size_t end = std::min(text_.find('\n', offset), text_.size());
  if (end > offset && text_[end - 1] == '\r') --end;
  const std::string_view text = text_;
  const std::string before = Before(text.substr(begin, offset - begin));
  const std::size_t mark = Columns(before);
  return {before + From(text.substr(offset, end - offset), kColumns - mark), mark};
}

}  // namespace Zelk::Tool
