#include <memory>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "metamodel/json_metadata_container.h"
#include "support/builders.h"
#include "support/loaded_table.h"

// Lookups pass over sources and levels that do not hold a name. Here they are held against walks
// through everything.

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using Testing::Part;

/// Files whose names are few, so that they meet at different levels and in different sources. Every
/// part has a documentation of its own, by which it is known again.
class RandomFiles {
 public:
  std::string Make() { return Testing::MetamodelFile(Component()); }

  unsigned operator()() { return static_cast<unsigned>(random_()); }

 private:
  template <typename MakePart>
  Part Told(const MakePart& make_part, char kind, unsigned names) {
    const std::string name = kind + std::to_string(random_() % names);
    return make_part(name, Testing::Parts()).Doc(name + " #" + std::to_string(++parts_));
  }

  template <typename AddPart>
  void Add(unsigned at_most, const AddPart& add_part) {
    for (auto count = random_() % (at_most + 1); count > 0; --count) add_part();
  }

  Part Enumeration() { return Told(Testing::Enumeration, 'e', 60); }

  Part Structure() {
    Part structure = Told(Testing::Structure, 't', 40);
    Add(1, [&] { structure = structure.With(Enumeration()); });
    return structure;
  }

  Part Service() {
    Part service = Told(Testing::Service, 's', 30);
    Add(2, [&] { service = service.With(Enumeration()); });
    Add(3, [&] { service = service.With(Structure()); });
    return service;
  }

  Part Package() {
    Part package = Told(Testing::Package, 'p', 20);
    Add(1, [&] { package = package.With(Enumeration()); });
    Add(1, [&] { package = package.With(Structure()); });
    Add(3, [&] { package = package.With(Service()); });
    return package;
  }

  Part Component() {
    Part component = Told(Testing::Component, 'c', 5);
    Add(3, [&] { component = component.With(Package()); });
    return component;
  }

  std::mt19937 random_{20};
  unsigned parts_ = 0;
};

/// The documentation of a record, "none" for none.
template <typename Record>
std::string Told(const std::shared_ptr<const Record>& record) {
  return record ? record->documentation : "none";
}

class Lookups : public testing::Test {
 protected:
  /// Calls `visit(record)` for all records of a level, in the order of a walk; the first answer
  /// other than "none" is the walk's.
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

  template <typename Visit>
  std::string WalkServices(const Visit& visit) const {
    return WalkPackages([&](const auto& package, const auto& /*name*/) -> std::string {
      for (const auto& [name, service] : package.services) {
        const std::string answer = visit(*service, name);
        if (answer != "none") return answer;
      }
      return "none";
    });
  }

  template <typename Map>
  static std::string In(const Map& map, const std::string& name) {
    const auto found = map.find(name);
    return found == map.end() ? "none" : Told(found->second);
  }

  template <typename Map>
  static std::string InStructures(const Map& structures, const std::string& name) {
    for (const auto& [structure_name, structure] : structures) {
      const std::string answer = In(structure->enumerations, name);
      if (answer != "none") return answer;
    }
    return "none";
  }

  std::string Package(const std::string& name) const {
    return WalkPackages([&](const auto& package, const auto& key) -> std::string {
      return key == name ? package.documentation : "none";
    });
  }

  std::string Service(const std::string& name) const {
    return WalkPackages(
        [&](const auto& package, const auto& /*key*/) { return In(package.services, name); });
  }

  std::string Structure(const std::string& name) const {
    const auto in = [&](const auto& parent, const auto& /*key*/) {
      return In(parent.structures, name);
    };
    const std::string answer = WalkPackages(in);
    return answer != "none" ? answer : WalkServices(in);
  }

  std::string Enumeration(const std::string& name) const {
    const auto in = [&](const auto& parent, const auto& /*key*/) {
      return In(parent.enumerations, name);
    };
    const auto in_structures = [&](const auto& parent, const auto& /*key*/) {
      return InStructures(parent.structures, name);
    };
    for (const auto& answer : {WalkPackages(in), WalkServices(in), WalkPackages(in_structures),
                               WalkServices(in_structures)}) {
      if (answer != "none") return answer;
    }
    return "none";
  }

  void CheckAll() {
    const auto& lookups = table_.Lookups();
    for (unsigned i = 0; i < 70; ++i) {
      const auto id = [i](char kind) { return kind + std::to_string(i); };
      Check(Told(lookups.PackageInfo(id('p'))), Package(id('p')));
      Check(Told(lookups.ServiceInfo(id('s'))), Service(id('s')));
      Check(Told(lookups.StructureInfo(id('t'))), Structure(id('t')));
      Check(Told(lookups.EnumerationInfo(id('e'))), Enumeration(id('e')));
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
}  // namespace Zelk::Provider::Metadata::Metamodel
