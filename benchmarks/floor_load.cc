#include <fcntl.h>
#include <memory>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include <rapidjson/document.h>

#include "openssl_digest.h"
#include "plain_loads.h"

namespace Zelk::Benchmarks {
namespace {

/// The file's bytes and a zero after them, read with one call.
std::unique_ptr<char[]> ReadAtOnce(const std::string& path, std::size_t& size) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat facts = {};
  if (file < 0 || fstat(file, &facts) != 0) throw std::runtime_error("cannot open " + path);
  size = static_cast<std::size_t>(facts.st_size);
  // Not make_unique(), which would clear it first.
  std::unique_ptr<char[]> bytes(new char[size + 1]);
  const ssize_t got = read(file, bytes.get(), size);
  close(file);
  if (got != facts.st_size) throw std::runtime_error("cannot read " + path);
  bytes[size] = '\0';
  return bytes;
}

}  // namespace

void LoadFloor(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    std::size_t size = 0;
    const auto bytes = ReadAtOnce(path, size);
    OpensslDigest digest;
    digest.Update(bytes.get(), size);
    digest.Finish();
    rapidjson::Document document;
    document.ParseInsitu(bytes.get());
    if (document.HasParseError()) throw std::runtime_error("not JSON: " + path);
  }
}

std::string ReadFile(const std::string& path) {
  std::size_t size = 0;
  const auto bytes = ReadAtOnce(path, size);
  return {bytes.get(), size};
}

}  // namespace Zelk::Benchmarks
