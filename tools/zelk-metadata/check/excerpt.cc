#include "check/excerpt.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string_view>
#include <vector>

#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Check {
namespace {

constexpr char kCut[] = "...";
constexpr char kTab[] = "    ";
constexpr std::size_t kColumns = 102;
constexpr std::size_t kLeastColumns = 20;
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

std::string Before(std::string_view bytes, std::size_t columns) {
  if (bytes.size() > kBytes) bytes.remove_prefix(bytes.size() - kBytes);
  const std::vector<std::string> characters = Characters(bytes);
  return Fitting(
      characters.rbegin(), characters.rend(), columns,
      [](const std::string& text, const std::string& character) { return character + text; });
}

std::string From(std::string_view bytes, std::size_t columns) {
  const std::vector<std::string> characters = Characters(bytes);
  return Fitting(
      characters.begin(), characters.end(), columns,
      [](const std::string& text, const std::string& character) { return text + character; });
}

}  // namespace

Excerpt ExcerptAt(const Analysis::Document& document, std::size_t offset, std::size_t columns) {
  const std::size_t room =
      (columns == 0 ? kColumns : std::max(columns, kLeastColumns)) - std::strlen(kCut);
  const std::string_view text = document.Text();
  const std::size_t begin = offset + 1 - document.PositionAt(offset).column;
  std::string_view rest = text.substr(offset, kBytes);
  rest = rest.substr(0, rest.find('\n'));
  if (!rest.empty() && rest.back() == '\r') rest.remove_suffix(1);
  const std::string before =
      Before(text.substr(begin, offset - begin), room / 2 - std::strlen(kCut));
  const std::size_t mark = Columns(before);
  return {before + From(rest, room - mark), mark};
}

void WriteExcerpt(std::ostream& out, const Analysis::Document& document, std::size_t offset,
                  std::size_t width) {
  const std::string number = std::to_string(document.PositionAt(offset).line);
  const std::size_t before = number.size() + 5;
  const Excerpt excerpt = ExcerptAt(document, offset, width > before ? width - before : 0);
  const std::string blank(number.size(), ' ');
  out << "  " << number << " | " << excerpt.line << '\n';
  out << "  " << blank << " | " << std::string(excerpt.mark, ' ') << "^\n";
}

}  // namespace Zelk::Tool::Check
