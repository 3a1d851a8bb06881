#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/json_metadata_container.h"
#include "support/loaded_table.h"

// Lookups pass over sources that do not hold an identity. Here they are held against walks through
// everything.

namespace Zelk::Provider::Metadata::Cli {
namespace {

const std::vector<std::string> kPaths = {"", "a", "b", "a.b", "b.a", "a.b.c", "ab", "x.y"};
const std::vector<std::string> kNames = {"", "a", "b", "c", "ab", "b.c", "y", "z"};

/// Files whose names are few, so that they meet in different sources. Every node has a description
/// of its own, by which it is known again.
class RandomFiles {
 public:
  std::string Make() {
    std::string nodes = Node();
    for (auto count = random_() % 6; count > 0; --count) nodes += ", " + Node();
    return R"({"cli": [)" + nodes + "]}";
  }

  unsigned operator()() { return static_cast<unsigned>(random_()); }

 private:
  const std::string& OneOf(const std::vector<std::string>& texts) {
    return texts[random_() % texts.size()];
  }

  std::string Node() {
    return R"({"type": ")" + std::string(random_() % 2 == 0 ? "namespace" : "command") +
           R"(", "path": ")" + OneOf(kPaths) + R"(", "name": ")" + OneOf(kNames) +
           R"(", "description": "#)" + std::to_string(++nodes_) +
           R"(", "node_metadata": {"service_id": "s", "operation_id": "o"}})";
  }

  std::mt19937 random_{22};
  unsigned nodes_ = 0;
};

template <typename Record>
std::string Told(const std::shared_ptr<Record>& record) {
  return record ? record->description : "none";
}

class Lookups : public testing::Test {
 protected:
  template <typename Nodes>
  std::string Walk(Nodes SourceData::*nodes, const std::string& path,
                   const std::string& name) const {
    for (const auto& [id, source] : table_.Table()) {
      for (const auto& [identity, record] : (*source).*nodes) {
        if (identity->path == path && identity->name == name) return Told(record);
      }
    }
    return "none";
  }

  void CheckAll() {
    using NamespaceIdentity = Bindings::Cli::NamespaceSvc::Identity;
    using CommandIdentity = Bindings::Cli::CommandSvc::Identity;
    const auto& lookups = table_.Lookups();
    for (const auto& path : kPaths) {
      for (const auto& name : kNames) {
        Check(Told(lookups.NamespaceInfo(std::make_shared<NamespaceIdentity>(path, name))),
              Walk(&SourceData::namespaces, path, name));
        Check(Told(lookups.CommandInfo(std::make_shared<CommandIdentity>(path, name))),
              Walk(&SourceData::commands, path, name));
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
  EXPECT_GT(hits_, 1000);
  EXPECT_GT(misses_, 1000);
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
