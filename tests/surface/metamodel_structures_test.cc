#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "surface/metamodel_under_test.h"

// Structures are defined in packages and in services.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ListStructures, ListsPackagesBeforeServices) {
  const ComponentSources sources{
      {"c",
       Component("z", {Package("p", {Service("s", {Structure("c.p.s.1")}), Structure("c.p.1")})})},
      {"b",
       Component("y", {Package("p", {Structure("b.p.1"), Service("s", {Structure("b.p.s.1")})})})},
      {"a",
       Component("z",
                 {Package("q", {Service("s", {Structure("a.q.s.1")}), Structure("a.q.2"),
                                Structure("a.q.1")}),
                  Package("p", {Service("t", {Structure("a.p.t.1")}), Structure("a.p.1"),
                                Service("s", {Structure("a.p.s.2"), Structure("a.p.s.1")})})})}};
  EXPECT_THAT(sources->ListStructures(),
              ElementsAre("a.p.1", "a.q.1", "a.q.2", "b.p.1", "c.p.1",  //
                          "a.p.s.1", "a.p.s.2", "a.p.t.1", "a.q.s.1", "b.p.s.1", "c.p.s.1"));
}

TEST(ListStructures, ListsARepeatedNameEachTime) {
  const Part package = Package("p", {Structure("t"), Service("s", {Structure("t")})});
  const ComponentSources sources{{"a", Component("c", {package})},
                                 {"b", Component("c", {package})}};
  EXPECT_THAT(sources->ListStructures(), ElementsAre("t", "t", "t", "t"));
}

TEST(ListStructures, SkipsPackagesWithoutStructures) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Operation("o")}), Enumeration("e")})})}};
  EXPECT_THAT(sources->ListStructures(), IsEmpty());
}

TEST(StructureInfo, PrefersAPackageToItsServices) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Structure("t").Doc("service")}),
                                          Structure("t").Doc("package")})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "package");
}

TEST(StructureInfo, PrefersAPackageToAServiceOfAnEarlierSource) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Service("s", {Structure("t").Doc("service")})})})},
      {"b", Component("d", {Package("q", {Structure("t").Doc("package")})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "package");
  ASSERT_EQ(sources->DeleteSource("b"), nullptr);
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "service");
}

TEST(StructureInfo, PrefersTheFirstSourceAmongPackages) {
  const ComponentSources sources{
      {"c", Component("x", {Package("p", {Structure("t").Doc("c")})})},
      {"b", Component("y", {Package("p", {Structure("t").Doc("b"), Structure("u").Doc("only")})})},
      {"a", Component("z", {Package("q", {Structure("t").Doc("a")})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "a");
  EXPECT_EQ(DocOf(sources->StructureInfo("u")), "only");
}

TEST(StructureInfo, PrefersTheFirstPackage) {
  const ComponentSources sources{{"a", Component("c", {Package("q", {Structure("t").Doc("q")}),
                                                       Package("p", {Structure("t").Doc("p")})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "p");
}

TEST(StructureInfo, PrefersTheFirstSourceAmongServices) {
  const ComponentSources sources{
      {"c", Component("x", {Package("p", {Service("s", {Structure("t").Doc("c")})})})},
      {"b", Component("y", {Package("p", {Service("s", {Structure("t").Doc("b")})})})},
      {"a", Component("z", {Package("q", {Service("u", {Structure("t").Doc("a")})})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "a");
}

TEST(StructureInfo, PrefersTheFirstPackageThenTheFirstService) {
  const ComponentSources sources{
      {"a", Component("c", {Package("q", {Service("a", {Structure("t").Doc("q.a"),
                                                        Structure("u").Doc("q.a")})}),
                            Package("p", {Service("t", {Structure("t").Doc("p.t")}),
                                          Service("s", {Structure("t").Doc("p.s")})})})}};
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "p.s");
  EXPECT_EQ(DocOf(sources->StructureInfo("u")), "q.a");
}

TEST(StructureInfo, KeepsTheFirstOfARepeatedNameInAFile) {
  const ComponentSources sources{
      {"a", Component("c", {Package("p", {Structure("t").Doc("1"), Structure("t").Doc("2")})})}};
  EXPECT_THAT(sources->ListStructures(), ElementsAre("t"));
  EXPECT_EQ(DocOf(sources->StructureInfo("t")), "1");
}

TEST(StructureInfo, MayHaveNoFields) {
  const ComponentSources sources{{"a", Component("c", {Package("p", {Structure("t")})})}};
  ASSERT_NE(sources->StructureInfo("t"), nullptr);
  EXPECT_THAT(sources->StructureInfo("t")->fields, IsEmpty());
}

}  // namespace
}  // namespace Zelk::Testing
