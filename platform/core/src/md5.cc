// The functions that work on a state of our own: they allocate nothing and cannot fail, while those
// that fetch the digest by name run the library's initialisation, which an exhausted host or one
// that allows approved digests only makes fail. Their deprecation is about security, which is not
// what these digests are for.
#define OPENSSL_API_COMPAT 10101

#include <array>
#include <istream>
#include <openssl/md5.h>
#include <vector>

#include <zelk/md5.h>

namespace Zelk {
namespace {

// On the heap and not on the stack, which belongs to the caller and may be small.
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

void MD5::StateDeleter::operator()(MD5state_st* state) const {
  delete state;
}

MD5::MD5() : state_(new MD5_CTX) {
  MD5_Init(state_.get());
}

MD5::MD5(MD5&& other) noexcept = default;

MD5& MD5::operator=(MD5&& other) noexcept = default;

MD5::~MD5() = default;

void MD5::Update(const std::string& bytes) {
  Update(bytes.data(), bytes.size());
}

void MD5::Update(const char* data, std::size_t size) {
  MD5_Update(state_.get(), data, size);
}

std::string MD5::hexdigest() const {
  // Reading the digest ends a state, so a copy is ended and this one can be fed further.
  MD5_CTX ended = *state_;
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
