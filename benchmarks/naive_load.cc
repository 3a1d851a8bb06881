#include <array>
#include <fstream>
#include <stdexcept>

#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include "openssl_digest.h"
#include "plain_loads.h"

// In a file of its own: RapidJSON's parser is inlined better where it is used for one kind of
// stream only.

namespace Zelk::Benchmarks {

void LoadNaively(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    std::ifstream file(path);
    rapidjson::IStreamWrapper stream(file);
    rapidjson::Document document;
    document.ParseStream(stream);
    if (document.HasParseError()) throw std::runtime_error("not JSON: " + path);

    std::ifstream again(path);
    OpensslDigest digest;
    std::array<char, 4096> part{};
    while (again) {
      again.read(part.data(), part.size());
      digest.Update(part.data(), static_cast<std::size_t>(again.gcount()));
    }
    digest.Finish();
  }
}

}  // namespace Zelk::Benchmarks
