#include "docs/encoding.h"

#include <algorithm>
#include <new>
#include <openssl/evp.h>
#include <zlib.h>

#include "render/utf8.h"

namespace Zelk::Tool::Docs {
namespace {

const unsigned char* Bytes(std::string_view text) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): both libraries take unsigned bytes
  return reinterpret_cast<const unsigned char*>(text.data());
}

unsigned char* Bytes(std::string& text) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the same
  return reinterpret_cast<unsigned char*>(text.data());
}

}  // namespace

std::string Base64(std::string_view bytes) {
  // The library counts in int. Three bytes are four characters.
  constexpr std::size_t kStep = std::size_t{3} << 20U;
  std::string text;
  text.reserve(bytes.size() / 3 * 4 + 4);
  std::string part(kStep / 3 * 4 + 1, '\0');
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kStep, bytes.size()))) {
    const int size =
        EVP_EncodeBlock(Bytes(part), Bytes(bytes), static_cast<int>(std::min(kStep, bytes.size())));
    text.append(part, 0, static_cast<std::size_t>(size));
  }
  return text;
}

std::string Deflated(std::string_view text) {
  uLongf size = compressBound(text.size());
  std::string bytes(size, '\0');
  // The buffer is large enough, so only memory can be missing.
  const int result =
      compress2(Bytes(bytes), &size, Bytes(text), text.size(), Z_DEFAULT_COMPRESSION);
  if (result != Z_OK) throw std::bad_alloc();  // coverage: zlib needs less memory than the text
  bytes.resize(size);
  return bytes;
}

std::string PolicyHash(std::string_view text) {
  std::string bytes(EVP_MAX_MD_SIZE, '\0');
  unsigned int size = 0;
  EVP_Digest(text.data(), text.size(), Bytes(bytes), &size, EVP_sha256(), nullptr);
  bytes.resize(size);
  return "'sha256-" + Base64(bytes) + "'";
}

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char character : Render::RepairedUtf8(std::string(text))) {
    switch (character) {
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '&':
        html += "&amp;";
        break;
      default:
        html += character;
    }
  }
  return html;
}

}  // namespace Zelk::Tool::Docs
