#include "docs/shown.h"

#include <cstdint>
#include <fmt/format.h>
#include <re2/re2.h>

#include "render/utf8.h"

namespace Zelk::Tool::Docs {
namespace {

bool IsPlain(std::uint32_t code) {
  return (code >= 0x20 && code < 0x7f) || code == '\t' || code == '\n';
}

bool IsJoiner(std::uint32_t code) {
  return code == 0x200c || code == 0x200d;
}

}  // namespace

std::string ShownName(std::string_view text, std::size_t longest) {
  // What UNSEEN of page/dom.js leaves. RE2 has no class of the codes without a character.
  static const RE2 shapes(R"([\p{L}\p{M}\p{N}\p{P}\p{S}\p{Zs}])");
  static const RE2 blanks(R"([\x{34f}\x{115f}\x{1160}\x{2800}\x{3164}\x{ffa0}])");
  static const RE2 latin(R"(\p{Latin})");
  static const RE2 nothing(R"([\s\p{Zs}]*)");
  std::string shown;
  std::size_t count = 0;
  bool can_join = false;
  // No character has more than four bytes.
  const std::string begin = Render::RepairedUtf8(std::string(text.substr(0, 4 * (longest + 1))));
  Render::ForEachCharacter(begin, [&](std::uint32_t code, std::string_view bytes) {
    if (++count > longest) return;
    const re2::StringPiece piece(bytes.data(), bytes.size());
    const bool is_plain = IsPlain(code);
    const bool is_shape =
        !is_plain && RE2::FullMatch(piece, shapes) && !RE2::FullMatch(piece, blanks);
    if (is_plain || is_shape || (can_join && IsJoiner(code))) {
      shown += bytes;
    } else {
      shown += fmt::format("\u27e8U+{:04X}\u27e9", code);
    }
    // Joiners have an effect in other scripts and between emoji.
    can_join = is_shape && !RE2::FullMatch(piece, latin);
  });
  if (count > longest) shown += "\u2026";
  return RE2::FullMatch(shown, nothing) ? "(blank)" : shown;
}

}  // namespace Zelk::Tool::Docs
