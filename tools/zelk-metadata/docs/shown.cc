#include "docs/shown.h"

#include <cstdint>
#include <fmt/format.h>
#include <re2/re2.h>

#include "render/utf8.h"

namespace Zelk::Tool::Docs {
namespace {

/// What UNSEEN of page/dom.js has. RE2 does not know codes without a character, so those are listed
/// that have no shape: the ones that are never characters, and those that are kept for characters
/// without a shape.
constexpr const char* kUnseen =
    R"([\p{C}\p{Zl}\p{Zp}\x{34f}\x{115f}\x{1160}\x{2065}\x{2800}\x{3164}\x{fdd0}-\x{fdef}\x{ffa0})"
    R"(\x{fff0}-\x{fff8}\x{fffe}\x{ffff}\x{e0000}-\x{e00ff}\x{e01f0}-\x{e0fff}])";

bool IsPlain(std::uint32_t code) {
  return (code >= 0x20 && code < 0x7f) || code == '\t' || code == '\n';
}

bool IsJoiner(std::uint32_t code) {
  return code == 0x200c || code == 0x200d;
}

}  // namespace

std::string ShownName(std::string_view text, std::size_t longest) {
  static const RE2 unseen(kUnseen);
  // Joiners have an effect after these.
  static const RE2 joining(R"([^ -~\p{C}\p{Latin}])");
  static const RE2 blank(R"([\s\p{Zs}]*)");
  std::string shown;
  std::size_t count = 0;
  bool is_joining = false;
  // No character has more than four bytes.
  const std::string begin = Render::RepairedUtf8(std::string(text.substr(0, 4 * (longest + 1))));
  Render::ForEachCharacter(begin, [&](std::uint32_t code, std::string_view bytes) {
    if (++count > longest) return;
    const re2::StringPiece piece(bytes.data(), bytes.size());
    const bool is_seen =
        IsPlain(code) || (is_joining && IsJoiner(code)) || !RE2::FullMatch(piece, unseen);
    shown += is_seen ? std::string(bytes) : fmt::format("\u27e8U+{:04X}\u27e9", code);
    is_joining = !IsPlain(code) && RE2::FullMatch(piece, joining);
  });
  if (count > longest) shown += "\u2026";
  return RE2::FullMatch(shown, blank) ? "(blank)" : shown;
}

}  // namespace Zelk::Tool::Docs
