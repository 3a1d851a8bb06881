#pragma once

#include <string>
#include <string_view>

namespace Zelk::Tool::Docs {

/// In the standard alphabet, with padding.
std::string Base64(std::string_view bytes);

/// Compressed as browsers call "deflate": in the zlib format.
std::string Deflated(std::string_view text);

/// What a content security policy allows an inline script or style by: "'sha256-...'".
std::string PolicyHash(std::string_view text);

/// The text as content of an HTML element. What is not well-formed UTF-8 is replaced.
std::string Escaped(std::string_view text);

}  // namespace Zelk::Tool::Docs
