#include <istream>
#include <new>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <stdexcept>
#include <vector>

#include <zelk/md5.h>

namespace Zelk {
namespace {

constexpr std::size_t kDigestSize = 16;

// On the heap and not on the stack, which belongs to the caller and may be small.
constexpr std::size_t kChunkSize = std::size_t{64} * 1024;

// Empties the error queue, or the host would take what is left there for the outcome of its own
// next call. True if the cryptography library refused the algorithm.
bool TakeRefusal() {
  bool refused = false;
  while (const unsigned long error = ERR_get_error()) {
    refused = refused || ERR_GET_REASON(error) == ERR_R_UNSUPPORTED;
  }
  return refused;
}

// Once MD5 has begun, there is nothing left that fails but memory; the library does not always
// say so.
void Check(int succeeded) {
  if (succeeded == 1) return;
  TakeRefusal();
  throw std::bad_alloc();
}

std::string ToHex(const std::vector<unsigned char>& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  hex.reserve(2 * bytes.size());
  for (const unsigned char byte : bytes) {
    hex += kDigits[byte >> 4U];
    hex += kDigits[byte & 0xFU];
  }
  return hex;
}

}  // namespace

void MD5::ContextDeleter::operator()(evp_md_ctx_st* context) const {
  EVP_MD_CTX_free(context);
}

MD5::ContextPtr MD5::NewContext() {
  ContextPtr context(EVP_MD_CTX_new());
  if (!context) throw std::bad_alloc();
  return context;
}

MD5::MD5() : context_(NewContext()) {
  if (EVP_DigestInit_ex(context_.get(), EVP_md5(), nullptr) == 1) return;
  if (TakeRefusal()) throw std::runtime_error("MD5 is not available");
  throw std::bad_alloc();
}

MD5::MD5(MD5&& other) noexcept = default;

MD5& MD5::operator=(MD5&& other) noexcept = default;

MD5::~MD5() = default;

void MD5::Update(const std::string& bytes) {
  Update(bytes.data(), bytes.size());
}

void MD5::Update(const char* data, std::size_t size) {
  Check(EVP_DigestUpdate(context_.get(), data, size));
}

std::string MD5::hexdigest() const {
  // Reading the digest ends a context, so a copy is ended and this one can be fed further.
  const ContextPtr ended = NewContext();
  Check(EVP_MD_CTX_copy_ex(ended.get(), context_.get()));
  std::vector<unsigned char> digest(kDigestSize);
  Check(EVP_DigestFinal_ex(ended.get(), digest.data(), nullptr));
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
