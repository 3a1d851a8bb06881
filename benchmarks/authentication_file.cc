#include <string>
#include <vector>

#include "metadata_file.h"
#include "random_text.h"

namespace Zelk::Benchmarks {
namespace {

constexpr const char* kSchemes[] = {"anonymous", "password", "session", "administrator", "badge"};
/// About what a service takes in a file, with its operations.
constexpr std::size_t kBytesOfService = 700;
constexpr std::size_t kServicesOfPackage = 12;
constexpr std::size_t kOperationsOfService = 6;

class AuthenticationWriter {
 public:
  explicit AuthenticationWriter(const FileSpec& spec)
      : size_(spec.bytes),
        name_("com.example.c" + std::to_string(spec.number)),
        json_(spec.layout),
        random_(0x4155'0000'0000 + spec.number) {}

  std::string Write() {
    json_.OpenObject();
    json_.Key("authentication");
    json_.OpenObject();
    json_.Key("component");
    json_.OpenObject();
    json_.Member("name", name_);
    Schemes();
    Packages(size_ / kBytesOfService / kServicesOfPackage + 1);
    Services(size_ / kBytesOfService + 1);
    Operations();
    json_.CloseObject();
    json_.CloseObject();
    json_.CloseObject();
    return json_.Take();
  }

 private:
  void Schemes() {
    json_.Key("schemes");
    json_.OpenObject();
    for (const std::string scheme : kSchemes) {
      const bool has_session = random_.OneIn(2);
      json_.Key(scheme);
      json_.OpenObject();
      json_.Member("authenticationScheme", "com.example.authentication." + scheme);
      json_.Member("type", has_session ? "SESSION_AWARE" : "SESSIONLESS");
      if (has_session) json_.Member("sessionManager", "com.example.session." + scheme);
      json_.CloseObject();
    }
    json_.CloseObject();
  }

  void SchemesOf(const std::string& id) {
    json_.Key(id);
    json_.OpenArray();
    const std::size_t count = random_.Between(1, 3);
    const std::size_t first = random_.Between(0, std::size(kSchemes) - count);
    for (std::size_t scheme = first; scheme < first + count; ++scheme) {
      json_.String(kSchemes[scheme]);
    }
    json_.CloseArray();
  }

  void Packages(std::size_t count) {
    json_.Key("packages");
    json_.OpenObject();
    for (std::size_t number = 0; number < count; ++number) {
      packages_.push_back(name_ + "." + random_.Name(number));
      SchemesOf(packages_.back());
    }
    json_.CloseObject();
  }

  void Services(std::size_t count) {
    json_.Key("services");
    json_.OpenObject();
    for (std::size_t number = 0; number < count; ++number) {
      services_.push_back(packages_[number / kServicesOfPackage] + "." + random_.Name(number));
      SchemesOf(services_.back());
    }
    json_.CloseObject();
  }

  /// The rest of the file; those of one service together, as people and generators write them.
  void Operations() {
    json_.Key("operations");
    json_.OpenObject();
    for (std::size_t number = 0; number == 0 || json_.Size() < size_; ++number) {
      SchemesOf(services_[number / kOperationsOfService % services_.size()] + "." +
                random_.Name(number));
    }
    json_.CloseObject();
  }

  std::size_t size_;
  std::string name_;
  JsonWriter json_;
  RandomText random_;
  std::vector<std::string> packages_;
  std::vector<std::string> services_;
};

}  // namespace

std::string AuthenticationFile(const FileSpec& spec) {
  return AuthenticationWriter(spec).Write();
}

}  // namespace Zelk::Benchmarks
