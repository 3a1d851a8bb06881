#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "authentication/json_metadata_container.h"
#include "support/loaded_table.h"

// Lookups pass over sources that do not hold a name. Here they are held against walks through
// everything.

namespace Zelk::Provider::Metadata::Authentication {
namespace {

/// Files whose names are few, so that they meet in different sources. Each of a file's two
/// components has a scheme of its own, by which its records are known again.
class RandomFiles {
 public:
  std::string Make() {
    return R"({"authentication": {"product": )" + Component() + R"(, "component": )" + Component() +
           "}}";
  }

  unsigned operator()() { return static_cast<unsigned>(random_()); }

 private:
  std::string Number(char kind, unsigned names) { return kind + std::to_string(random_() % names); }

  std::string PackageId() { return Number('p', 12); }

  std::string ServiceId() { return PackageId() + "." + Number('s', 4); }

  std::string OperationId() { return ServiceId() + "." + Number('o', 3); }

  /// An object of up to four ids, each with the one scheme.
  template <typename MakeId>
  std::string Listed(const MakeId& make_id) {
    std::string members;
    for (auto count = random_() % 5; count > 0; --count) {
      members += (members.empty() ? "\"" : ", \"") + make_id() + R"(": ["x"])";
    }
    return "{" + members + "}";
  }

  std::string Component() {
    return R"({"name": ")" + Number('c', 5) +
           R"(", "schemes": {"x": {"type": "SESSIONLESS", "authenticationScheme": "#)" +
           std::to_string(++components_) + R"("}}, "packages": )" +
           Listed([this] { return PackageId(); }) + R"(, "services": )" +
           Listed([this] { return ServiceId(); }) + R"(, "operations": )" +
           Listed([this] { return OperationId(); }) + "}";
  }

  std::mt19937 random_{21};
  unsigned components_ = 0;
};

std::string Text(const Bindings::Authentication::OperationInfo& operation) {
  std::string text;
  for (const auto& scheme : operation.schemes) text += scheme->scheme;
  return text;
}

std::string Text(const Bindings::Authentication::ServiceInfo& service) {
  std::string text;
  for (const auto& scheme : service.schemes) text += scheme->scheme;
  for (const auto& [name, operation] : service.operations) text += "(" + Text(*operation) + ")";
  return text;
}

std::string Text(const Bindings::Authentication::PackageInfo& package) {
  std::string text;
  for (const auto& scheme : package.schemes) text += scheme->scheme;
  for (const auto& [id, service] : package.services) text += "[" + Text(*service) + "]";
  return text;
}

template <typename Record>
std::string Text(const std::shared_ptr<const Record>& record) {
  return record ? Text(*record) : "none";
}

class Lookups : public testing::Test {
 protected:
  /// The first answer of `visit(package, name)` other than "none", in the order of a walk.
  template <typename Visit>
  std::string WalkPackages(const Visit& visit) const {
    for (const auto& [id, source] : table_.Table()) {
      for (const auto& [component_name, component] : source->components) {
        for (const auto& [name, package] : component->packages) {
          const std::string answer = visit(*package, name);
          if (answer != "none") return answer;
        }
      }
    }
    return "none";
  }

  std::string Package(const std::string& id) const {
    return WalkPackages([&](const auto& package, const auto& name) -> std::string {
      return name == id ? Text(package) : "none";
    });
  }

  std::string Service(const std::string& id) const {
    return WalkPackages([&](const auto& package, const auto& /*name*/) -> std::string {
      const auto service = package.services.find(id);
      return service == package.services.end() ? "none" : Text(service->second);
    });
  }

  std::string Operation(const std::string& service_id, const std::string& id) const {
    return WalkPackages([&](const auto& package, const auto& /*name*/) -> std::string {
      const auto service = package.services.find(service_id);
      if (service == package.services.end()) return "none";
      const auto operation = service->second->operations.find(id);
      return operation == service->second->operations.end() ? "none" : Text(operation->second);
    });
  }

  void CheckAll() {
    const auto& lookups = table_.Lookups();
    for (int p = 0; p < 15; ++p) {
      const std::string package = "p" + std::to_string(p);
      Check(Text(lookups.PackageInfo(package)), Package(package));
      for (int s = 0; s < 5; ++s) {
        const std::string service = package + ".s" + std::to_string(s);
        Check(Text(lookups.ServiceInfo(service)), Service(service));
        for (const std::string operation : {"o0", "o1", "o2", "o3"}) {
          Check(Text(lookups.OperationInfo(service, operation)), Operation(service, operation));
        }
      }
    }
  }

  void Check(const std::string& answer, const std::string& expected) {
    EXPECT_EQ(answer, expected);
    ++(expected == "none" ? misses_ : hits_);
  }

  Testing::LoadedTable<SourceDomain, JsonMetadataContainer> table_;
  int hits_ = 0;
  int misses_ = 0;
};

TEST_F(Lookups, FindTheSameAsAFullWalk) {
  RandomFiles files;
  Testing::ChangeAtRandom(
      table_, files, [&] { return files.Make(); }, [this] { CheckAll(); });
  EXPECT_GT(hits_, 2000);
  EXPECT_GT(misses_, 2000);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
