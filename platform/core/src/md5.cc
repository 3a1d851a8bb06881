// MD5_Init and its relatives work on a state of our own, allocate nothing and cannot fail. The EVP
// functions initialise the library, which can fail when memory is short or in FIPS mode. MD5_Init
// is deprecated for reasons of security, which is not what these digests are for.
#define OPENSSL_API_COMPAT 10101

#include <array>
#include <istream>
#include <openssl/md5.h>
#include <vector>

#include <zelk/md5.h>

namespace Zelk {

struct MD5::State {
  MD5_CTX context;
};

namespace {

// On the heap and not on the stack: the stack is the caller's and may be small.
constexpr std::size_t kChunkSize = std::size_t{64} * 1024;

using Digest = std::array<unsigned char, MD5_DIGEST_LENGTH>;

std::string ToHex(const Digest& digest) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  hex.reserve(2 * digest.size());
  for (const unsigned char byte : digest) {
    hex += kDigits[byte >> 4U];
    hex += kDigits[byte & 0xFU];
  }
  return hex;
}

}  // namespace

MD5::MD5() : state_(std::make_unique<State>()) {
  MD5_Init(&state_->context);
}

MD5::MD5(MD5&& other) noexcept = default;

MD5& MD5::operator=(MD5&& other) noexcept = default;

MD5::~MD5() = default;

void MD5::Update(const std::string& bytes) {
  Update(bytes.data(), bytes.size());
}

void MD5::Update(const char* data, std::size_t size) {
  MD5_Update(&state_->context, data, size);
}

std::string MD5::hexdigest() const {
  // MD5_Final ends the state that it is given. A copy is ended, so more input can follow.
  MD5_CTX ended = state_->context;
  Digest digest;
  MD5_Final(digest.data(), &ended);
  return ToHex(digest);
}

std::string MD5::hexdigest(std::istream& in) {
  MD5 digest;
  std::vector<char> chunk(kChunkSize);
  do {
    in.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    digest.Update(chunk.data(), static_cast<std::size_t>(in.gcount()));
  } while (in);
  return digest.hexdigest();
}

}  // namespace Zelk
