#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <openssl/evp.h>
#include <stdexcept>

namespace Zelk::Benchmarks {

/// The digest that loads take of their files, by OpenSSL itself.
class OpensslDigest {
 public:
  OpensslDigest() : context_(EVP_MD_CTX_new(), EVP_MD_CTX_free) {
    EVP_DigestInit_ex(context_.get(), EVP_md5(), nullptr);
  }

  void Update(const char* bytes, std::size_t size) {
    EVP_DigestUpdate(context_.get(), bytes, size);
  }

  void Finish() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    if (EVP_DigestFinal_ex(context_.get(), digest.data(), nullptr) != 1) {
      throw std::runtime_error("no digest");
    }
  }

 private:
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_;
};

}  // namespace Zelk::Benchmarks
