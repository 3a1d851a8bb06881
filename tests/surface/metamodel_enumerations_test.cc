#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// Enumerations are defined in four places: packages, services, the structures of packages and the
// structures of services. They are listed and looked for in that order.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One of the four places.
struct Place {
  const char* name;
  /// A package that defines the enumeration there.
  Part (*package)(const std::string& package_name, const Part& enumeration);
};

const std::vector<Place> kPlaces = {
    {"a package",
     [](const std::string& name, const Part& enumeration) { return Package(name, {enumeration}); }},
    {"a service",
     [](const std::string& name, const Part& enumeration) {
       return Package(name, {Service("s", {enumeration})});
     }},
    {"a structure of a package",
     [](const std::string& name, const Part& enumeration) {
       return Package(name, {Structure("t", {enumeration})});
     }},
    {"a structure of a service",
     [](const std::string& name, const Part& enumeration) {
       return Package(name, {Service("s", {Structure("t", {enumeration})})});
     }},
};

/// A package with an enumeration in each of the four places, named after them.
Part FullPackage(const std::string& package, const std::string& prefix) {
  return Package(
      package,
      {Structure("u", {Enumeration(prefix + ".u.3"), Enumeration(prefix + ".u.3a")}),
       Service("s", {Structure("t", {Enumeration(prefix + ".s.t.4")}),
                     Enumeration(prefix + ".s.2a"), Enumeration(prefix + ".s.2")}),
       Enumeration(prefix + ".1a"), Structure("t", {Enumeration(prefix + ".t.3")}),
       Enumeration(prefix + ".1"),
       Service("r", {Enumeration(prefix + ".r.2"), Structure("v", {Enumeration(prefix + ".r.v.4")}),
                     Structure("t", {Enumeration(prefix + ".r.t.4")})})});
}

TEST(ListEnumerations, ListsTheFourPlacesOfAPackageInTurn) {
  const ComponentSources sources{{"a", Component("c", {FullPackage("p", "p")})}};
  EXPECT_THAT(sources->ListEnumerations(), ElementsAre("p.1", "p.1a",               //
                                                       "p.r.2", "p.s.2", "p.s.2a",  //
                                                       "p.t.3", "p.u.3", "p.u.3a",  //
                                                       "p.r.t.4", "p.r.v.4", "p.s.t.4"));
}

TEST(ListEnumerations, WalksAllSourcesForEachPlace) {
  const ComponentSources sources{
      {"c", Component("x", {FullPackage("p", "c")})},
      {"b", Component("z", {FullPackage("p", "b")})},
      {"a", Component("z", {FullPackage("q", "a.q"), FullPackage("p", "a.p")})}};
  const std::vector<std::vector<std::string>> ends = {{".1", ".1a"},
                                                      {".r.2", ".s.2", ".s.2a"},
                                                      {".t.3", ".u.3", ".u.3a"},
                                                      {".r.t.4", ".r.v.4", ".s.t.4"}};
  std::vector<std::string> names;
  for (const auto& place : ends) {
    for (const std::string prefix : {"a.p", "a.q", "b", "c"}) {
      for (const auto& end : place) names.push_back(prefix + end);
    }
  }
  EXPECT_THAT(sources->ListEnumerations(), testing::ElementsAreArray(names));
}

TEST(ListEnumerations, ListsARepeatedNameEachTime) {
  const Part package =
      Package("p", {Enumeration("e"), Structure("t", {Enumeration("e")}),
                    Service("s", {Enumeration("e"), Structure("t", {Enumeration("e")})})});
  const ComponentSources sources{{"a", Component("c", {package})},
                                 {"b", Component("c", {package})}};
  EXPECT_THAT(sources->ListEnumerations(), ElementsAre("e", "e", "e", "e", "e", "e", "e", "e"));
}

TEST(ListEnumerations, SkipsPackagesWithoutEnumerations) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Structure("t")}), Structure("t")})})}};
  EXPECT_THAT(sources->ListEnumerations(), IsEmpty());
}

TEST(EnumerationInfo, IsFoundInEachOfTheFourPlaces) {
  for (const auto& place : kPlaces) {
    const ComponentSources sources{
        {"a", Component("c", {place.package("p", Enumeration("e").Doc(place.name))})}};
    EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), place.name);
    EXPECT_EQ(sources->EnumerationInfo("E"), nullptr) << place.name;
  }
}

TEST(EnumerationInfo, PrefersAnEarlierPlaceInALaterSource) {
  for (std::size_t sooner = 0; sooner < kPlaces.size(); ++sooner) {
    for (std::size_t later = sooner + 1; later < kPlaces.size(); ++later) {
      const auto& winner = kPlaces[sooner];
      const auto& loser = kPlaces[later];
      const ComponentSources sources{
          {"b", Component("d", {winner.package("q", Enumeration("e").Doc(winner.name))})},
          {"a", Component("c", {loser.package("p", Enumeration("e").Doc(loser.name))})}};
      EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), winner.name) << "not in " << loser.name;
      ASSERT_EQ(sources->DeleteSource("b"), nullptr);
      EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), loser.name) << "not in " << winner.name;
    }
  }
}

TEST(EnumerationInfo, PrefersAnEarlierPlaceInALaterPackage) {
  for (std::size_t sooner = 0; sooner < kPlaces.size(); ++sooner) {
    for (std::size_t later = sooner + 1; later < kPlaces.size(); ++later) {
      const auto& winner = kPlaces[sooner];
      const auto& loser = kPlaces[later];
      const ComponentSources sources{
          {"a", Component("c", {loser.package("p", Enumeration("e").Doc(loser.name)),
                                winner.package("q", Enumeration("e").Doc(winner.name))})}};
      EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), winner.name) << "not in " << loser.name;
    }
  }
}

TEST(EnumerationInfo, PrefersTheFirstSourceThenTheFirstPackage) {
  for (const auto& place : kPlaces) {
    const ComponentSources sources{
        {"c", Component("x", {place.package("p", Enumeration("e").Doc("c"))})},
        {"b", Component("z", {place.package("p", Enumeration("e").Doc("b")),
                              place.package("a", Enumeration("f").Doc("b"))})},
        {"a", Component("z", {place.package("r", Enumeration("e").Doc("a.r")),
                              place.package("q", Enumeration("e").Doc("a.q"))})}};
    EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "a.q") << place.name;
    EXPECT_EQ(DocOf(sources->EnumerationInfo("f")), "b") << place.name;
    ASSERT_EQ(sources->DeleteSource("a"), nullptr);
    EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "b") << place.name;
  }
}

TEST(EnumerationInfo, PrefersTheFirstService) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("t", {Enumeration("e").Doc("t")}),
                                          Service("s", {Enumeration("e").Doc("s")})})})}};
  EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "s");
}

TEST(EnumerationInfo, PrefersTheFirstStructure) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Structure("u", {Enumeration("e").Doc("u")}),
                                          Structure("t", {Enumeration("e").Doc("t")})})})}};
  EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "t");
}

TEST(EnumerationInfo, PrefersTheFirstServiceThenItsFirstStructure) {
  const ComponentSources sources{
      {"a",
       Component("c",
                 {Package("p", {Service("t", {Structure("a", {Enumeration("e").Doc("t.a")})}),
                                Service("s", {Structure("c", {Enumeration("e").Doc("s.c")}),
                                              Structure("b", {Enumeration("e").Doc("s.b")})})})})}};
  EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "s.b");
}

TEST(EnumerationInfo, KeepsTheFirstOfARepeatedNameInAFile) {
  for (const auto& place : kPlaces) {
    const ComponentSources sources{
        {"a", Component("c", {place.package("p", Enumeration("e").Doc("1")),
                              place.package("p", Enumeration("e").Doc("2"))})}};
    EXPECT_THAT(sources->ListEnumerations(), ElementsAre("e")) << place.name;
    EXPECT_EQ(DocOf(sources->EnumerationInfo("e")), "1") << place.name;
  }
}

TEST(EnumerationInfo, KeepsTheOrderAndRepeatsOfValues) {
  const ComponentSources sources{
      {"a",
       Component("c", {Package("p", {Enumeration("e", {EnumerationValue("B"), EnumerationValue("A"),
                                                       EnumerationValue("B")})})})}};
  std::vector<std::string> values;
  for (const auto& value : sources->EnumerationInfo("e")->values) values.push_back(value->value);
  EXPECT_THAT(values, ElementsAre("B", "A", "B"));
}

}  // namespace
}  // namespace Zelk::Testing
