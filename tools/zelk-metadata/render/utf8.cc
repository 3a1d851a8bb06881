#include "render/utf8.h"

#include <cstddef>
#include <cstdint>
#include <fmt/format.h>
#include <string_view>

namespace Zelk::Tool::Render {
namespace {

struct Character {
  /// Bytes taken: one for a byte that is not part of well-formed UTF-8.
  std::size_t size;
  std::uint32_t code;
  bool well_formed;
};

struct Form {
  std::size_t size;
  std::uint32_t lead_bits;
  /// The lowest code that needs this many bytes; a lower one is an overlong spelling.
  std::uint32_t lowest;
};

/// How the sequence that begins with this byte is made; a size of 0 for a byte that begins none.
Form FormOf(std::uint8_t lead) {
  if (lead < 0x80) return {1, 0x7fU, 0};
  if (lead >= 0xc2 && lead < 0xe0) return {2, 0x1fU, 0x80};
  if (lead >= 0xe0 && lead < 0xf0) return {3, 0x0fU, 0x800};
  if (lead >= 0xf0 && lead < 0xf5) return {4, 0x07U, 0x10000};
  return {0, 0, 0};
}

std::uint8_t Byte(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]);
}

Character First(std::string_view text) {
  const std::uint8_t lead = Byte(text, 0);
  const Character broken{1, lead, false};
  const Form form = FormOf(lead);
  if (form.size == 0 || form.size > text.size()) return broken;
  std::uint32_t code = lead & form.lead_bits;
  for (std::size_t i = 1; i < form.size; ++i) {
    const std::uint8_t next = Byte(text, i);
    if ((next & 0xc0U) != 0x80U) return broken;
    code = (code << 6U) | (next & 0x3fU);
  }
  const bool surrogate = code >= 0xd800 && code < 0xe000;
  if (code < form.lowest || code > 0x10ffff || surrogate) return broken;
  return {form.size, code, true};
}

/// The text rebuilt from what `show(character, bytes)` makes of each character.
template <typename Show>
std::string Rebuilt(std::string_view text, const Show& show) {
  std::string rebuilt;
  rebuilt.reserve(text.size());
  while (!text.empty()) {
    const Character character = First(text);
    show(rebuilt, character, text.substr(0, character.size));
    text.remove_prefix(character.size);
  }
  return rebuilt;
}

/// Line ends of any alphabet, what turns the direction of the text around it, and the codes that
/// are never characters, count as such.
bool IsControl(std::uint32_t code) {
  const bool is_direction =
      (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
  const bool is_line_end = code == 0x2028 || code == 0x2029;
  const bool is_no_character = code == 0xfffe || code == 0xffff;
  return code < 0x20 || (code >= 0x7f && code < 0xa0) || is_direction || is_line_end ||
         is_no_character;
}

}  // namespace

std::string RepairedUtf8(const std::string& text) {
  return Rebuilt(text, [](std::string& to, const Character& character, std::string_view bytes) {
    to += character.well_formed ? bytes : std::string_view("\xef\xbf\xbd");
  });
}

std::string ForTerminal(const std::string& text) {
  return Rebuilt(text, [](std::string& to, const Character& character, std::string_view bytes) {
    if (character.well_formed && !IsControl(character.code)) {
      to += bytes;
    } else {
      to += fmt::format(character.size == 1 ? "\\x{:02x}" : "\\u{:04x}", character.code);
    }
  });
}

void ForEachCharacter(std::string_view text,
                      const std::function<void(std::uint32_t, std::string_view)>& visit) {
  while (!text.empty()) {
    const Character character = First(text);
    visit(character.code, text.substr(0, character.size));
    text.remove_prefix(character.size);
  }
}

}  // namespace Zelk::Tool::Render
