#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Zelk::Tool::Render {

/// The text with U+FFFD in place of every byte that is not part of well-formed UTF-8.
std::string RepairedUtf8(const std::string& text);

/// The text as it may be shown on a terminal: printable characters stay, control characters become
/// \xNN (those beyond ASCII \u00NN) and bytes that are not part of well-formed UTF-8 \xNN. Metadata
/// comes from anywhere, and a name must not be able to drive the terminal.
std::string ForTerminal(const std::string& text);

/// Calls `visit` with the code and the bytes of every character; bytes that are not part of
/// well-formed UTF-8 are taken for characters themselves.
void ForEachCharacter(std::string_view text,
                      const std::function<void(std::uint32_t, std::string_view)>& visit);

}  // namespace Zelk::Tool::Render
