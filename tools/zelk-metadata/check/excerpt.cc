#include "check/excerpt.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string_view>

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

/// Takes away the first character.
std::string_view TakeFirst(std::string_view& bytes) {
  std::size_t size = 1;
  while (size < bytes.size() && size < 4 && Continues(bytes[size])) ++size;
  const std::string_view character = bytes.substr(0, size);
  bytes.remove_prefix(size);
  return character;
}

/// Takes away the last character.
std::string_view TakeLast(std::string_view& bytes) {
  std::size_t size = 1;
  while (size < bytes.size() && size < 4 && Continues(bytes[bytes.size() - size])) ++size;
  const std::string_view character = bytes.substr(bytes.size() - size);
  bytes.remove_suffix(size);
  return character;
}

/// As many of the characters as `columns` have room for, as they are shown and joined.
template <typename Take, typename Join>
std::string Fitting(std::string_view bytes, std::size_t columns, const Take& take,
                    const Join& join) {
  std::string text;
  while (!bytes.empty()) {
    const std::string_view character = take(bytes);
    const std::string shown =
        character == "\t" ? kTab : Render::ForTerminal(std::string(character));
    const std::size_t needed = Render::Columns(shown);
    if (needed > columns) return join(text, kCut);
    columns -= needed;
    text = join(text, shown);
  }
  return text;
}

std::string Before(std::string_view bytes, std::size_t columns) {
  if (bytes.size() > kBytes) bytes.remove_prefix(bytes.size() - kBytes);
  return Fitting(
      bytes, columns, TakeLast,
      [](const std::string& text, const std::string& character) { return character + text; });
}

std::string From(std::string_view bytes, std::size_t columns) {
  return Fitting(
      bytes, columns, TakeFirst,
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
  const std::size_t mark = Render::Columns(before);
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
