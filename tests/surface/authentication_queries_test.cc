#include <list>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/authentication_text.h"
#include "surface/authentication_under_test.h"

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Container = AuthenticationUnderTest::Container;

// Two parts with the same package, service and operations but other schemes.
constexpr char kProductAndComponent[] = R"({"authentication": {
    "product": {"name": "foo",
        "schemes": {"x": {"authenticationScheme": "p", "type": "SESSIONLESS"}},
        "operations": {"a.b.d": ["x"], "a.c.d": ["x"]},
        "services": {"a.b": ["x"]}, "packages": {"a": ["x"]}},
    "component": {"name": "bar",
        "schemes": {"x": {"authenticationScheme": "c", "type": "SESSIONLESS"}},
        "operations": {"a.b.d": ["x"], "a.b.e": ["x"]},
        "services": {"a.b": ["x", "x"]}, "packages": {"a": ["x", "x"], "0": ["x"]}}}})";

std::string SecondFile() {
  return SchemesFile("foo", R"("operations": {"a.b.d": ["y"], "a.b.f": ["y"], "z.b.g": []},
                                 "services": {"a.b": ["y"], "a.a": []},
                                 "packages": {"a": ["y"], "q": []})");
}

/// The operations listed for a service, or a word in their place when it is unknown.
std::list<std::string> OperationsOf(const Container& container, const std::string& service_id) {
  return container.ListOperations(service_id).value_or(std::list<std::string>{"(unknown)"});
}

/// The source "m" holds the components "bar" and "foo", the source "n" another "foo".
class TwoAuthenticationSources : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(sources_.Create("n", SecondFile()), Lines());
    ASSERT_EQ(sources_.Create("m", kProductAndComponent), Lines());
  }

  AuthenticationSources sources_;
};

TEST(EmptyAuthentication, HasEmptyListsAndNoRecords) {
  const AuthenticationSources sources;
  EXPECT_THAT(sources->ListSources(), IsEmpty());
  EXPECT_THAT(sources->ListComponents(), IsEmpty());
  EXPECT_THAT(sources->ListPackages(), IsEmpty());
  EXPECT_THAT(sources->ListServices(), IsEmpty());
  EXPECT_FALSE(sources->ListOperations("").has_value());
  EXPECT_EQ(sources->SourcesInfo(""), nullptr);
  EXPECT_EQ(sources->ComponentInfo(""), nullptr);
  EXPECT_EQ(sources->PackageInfo(""), nullptr);
  EXPECT_EQ(sources->ServiceInfo(""), nullptr);
  EXPECT_EQ(sources->OperationInfo("", ""), nullptr);
  EXPECT_EQ(sources->ComponentFingerprint(""), "");
}

TEST_F(TwoAuthenticationSources, AreWalkedInOrder) {
  EXPECT_THAT(sources_->ListSources(), ElementsAre("m", "n"));
  EXPECT_THAT(sources_->ListComponents(), ElementsAre("bar", "foo", "foo"));
  EXPECT_THAT(sources_->ListPackages(), ElementsAre("0", "a", "a", "a", "q", "z"));
  EXPECT_THAT(sources_->ListServices(), ElementsAre("a.b", "a.b", "a.c", "a.a", "a.b", "z.b"));
}

TEST_F(TwoAuthenticationSources, PreferTheFirstComponent) {
  const auto foo = sources_->ComponentInfo("foo");
  ASSERT_NE(foo, nullptr);
  EXPECT_EQ(foo->fingerprint, Md5(kProductAndComponent));
  EXPECT_EQ(ComponentText("foo", *foo->info), R"(component "foo"
  package "a" ["p"]
    service "a.b" ["p"]
      operation "d" ["p"]
    service "a.c" []
      operation "d" ["p"]
)");
  EXPECT_EQ(sources_->ComponentInfo("fo"), nullptr);
}

TEST_F(TwoAuthenticationSources, PreferTheFirstComponentFingerprint) {
  EXPECT_EQ(sources_->ComponentFingerprint("foo"), Md5(kProductAndComponent));
  EXPECT_EQ(sources_->ComponentFingerprint("bar"), Md5(kProductAndComponent));
  EXPECT_EQ(sources_->ComponentFingerprint("baz"), "");
  ASSERT_EQ(sources_->DeleteSource("m"), nullptr);
  EXPECT_EQ(sources_->ComponentFingerprint("foo"), Md5(SecondFile()));
  EXPECT_EQ(sources_->ComponentFingerprint("bar"), "");
}

TEST_F(TwoAuthenticationSources, PreferTheFirstPackage) {
  const auto a = sources_->PackageInfo("a");
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(PackageText("a", *a), R"(package "a" ["c", "c"]
  service "a.b" ["c", "c"]
    operation "d" ["c"]
    operation "e" ["c"]
)");
  EXPECT_NE(sources_->PackageInfo("z"), nullptr);
  EXPECT_EQ(sources_->PackageInfo("a.b"), nullptr);
}

TEST_F(TwoAuthenticationSources, PreferTheFirstService) {
  const auto service = sources_->ServiceInfo("a.b");
  ASSERT_NE(service, nullptr);
  EXPECT_EQ(ServiceText("a.b", *service), R"(service "a.b" ["c", "c"]
  operation "d" ["c"]
  operation "e" ["c"]
)");
  EXPECT_NE(sources_->ServiceInfo("z.b"), nullptr);
  EXPECT_EQ(sources_->ServiceInfo("b"), nullptr);
}

TEST_F(TwoAuthenticationSources, ListTheOperationsOfTheFirstService) {
  EXPECT_THAT(OperationsOf(*sources_.Shared(), "a.b"), ElementsAre("d", "e"));
  EXPECT_THAT(OperationsOf(*sources_.Shared(), "a.c"), ElementsAre("d"));
  EXPECT_THAT(OperationsOf(*sources_.Shared(), "a.a"), IsEmpty());
  EXPECT_FALSE(sources_->ListOperations("a").has_value());
}

TEST_F(TwoAuthenticationSources, SearchEveryServiceForAnOperation) {
  const auto first = sources_->OperationInfo("a.b", "d");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(OperationText("d", *first), "operation \"d\" [\"c\"]\n");
  const auto later = sources_->OperationInfo("a.b", "f");
  ASSERT_NE(later, nullptr);
  EXPECT_EQ(OperationText("f", *later), "operation \"f\" [\"why\"@\"sm\"]\n");
  EXPECT_EQ(sources_->OperationInfo("a.b", "g"), nullptr);
  EXPECT_EQ(sources_->OperationInfo("a.d", "d"), nullptr);
}

TEST(AuthenticationOperations, AreFoundInALaterComponent) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", R"({"authentication": {
      "product": {"name": "second", "operations": {"a.b.op": []}},
      "component": {"name": "first", "services": {"a.b": []}}}})"),
            Lines());
  EXPECT_THAT(OperationsOf(*sources.Shared(), "a.b"), IsEmpty());
  EXPECT_NE(sources->OperationInfo("a.b", "op"), nullptr);
}

TEST(AuthenticationOperations, AreFoundInALaterSource) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("foo", R"("services": {"a.b": []})")), Lines());
  ASSERT_EQ(sources.Create("n", SchemesFile("foo", R"("operations": {"a.b.op": ["x"]})")), Lines());
  EXPECT_THAT(OperationsOf(*sources.Shared(), "a.b"), IsEmpty());
  const auto operation = sources->OperationInfo("a.b", "op");
  ASSERT_NE(operation, nullptr);
  EXPECT_EQ(OperationText("op", *operation), "operation \"op\" [\"ex\"]\n");
}

TEST(AuthenticationFile, KeepsTheComponentIfBothPartsHaveOneName) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", R"({"authentication": {
      "component": {"name": "foo", "packages": {"late": []}},
      "product": {"name": "foo", "packages": {"early": []}}}})"),
            Lines());
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo"));
  EXPECT_THAT(sources->ListPackages(), ElementsAre("late"));
}

TEST(AuthenticationFile, IsAcceptedWithOneGoodPart) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", R"({"authentication": {"product": {"name": 1},
                                                       "component": {"name": "foo"}}})"),
            Lines());
  ASSERT_EQ(sources.Create("n", R"({"authentication": {"product": {"name": "bar"},
                                                       "component": {"name": 1}}})"),
            Lines());
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo", "bar"));
}

TEST(AuthenticationFile, DropsServicesWithoutAPackage) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("foo", R"("operations": {"power.start": [],
                                                                       "vm.power.start": []})")),
            Lines());
  EXPECT_THAT(sources->ListComponents(), ElementsAre("foo"));
  EXPECT_THAT(sources->ListServices(), IsEmpty());
  EXPECT_THAT(sources->ListPackages(), IsEmpty());
}

TEST(AuthenticationFile, MayRegisterNothing) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", R"({"authentication": {}})"), Lines());
  ASSERT_EQ(sources.Create("n", R"({"authentication": {"product": 1}})"), Lines());
  EXPECT_THAT(sources->ListSources(), ElementsAre("m", "n"));
  EXPECT_THAT(sources->ListComponents(), IsEmpty());
}

TEST(AuthenticationRecords, HaveOnlyTheirOwnSchemes) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("foo", R"("operations": {"a.b.c": []},
      "services": {"a.b": ["y"]}, "packages": {"a": ["x"]})")),
            Lines());
  const auto package = sources->PackageInfo("a");
  ASSERT_NE(package, nullptr);
  EXPECT_EQ(PackageText("a", *package), R"(package "a" ["ex"]
  service "a.b" ["why"@"sm"]
    operation "c" []
)");
  const auto service = sources->ServiceInfo("a.b");
  ASSERT_NE(service, nullptr);
  EXPECT_EQ(SchemesText(service->schemes), R"(["why"@"sm"])");
  const auto operation = sources->OperationInfo("a.b", "c");
  ASSERT_NE(operation, nullptr);
  EXPECT_THAT(operation->schemes, IsEmpty());
}

TEST(AuthenticationRecords, KeepZeroBytesInNames) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("f\\u0000o", R"("operations": {"a.b\u0000.c": []})")),
            Lines());
  const std::string component("f\0o", 3);
  const std::string service("a.b\0", 4);
  EXPECT_THAT(sources->ListComponents(), ElementsAre(component));
  EXPECT_THAT(sources->ListServices(), ElementsAre(service));
  EXPECT_NE(sources->OperationInfo(service, "c"), nullptr);
  EXPECT_EQ(sources->ServiceInfo("a.b"), nullptr);
  EXPECT_EQ(sources->ComponentInfo("f"), nullptr);
}

TEST(AuthenticationRecords, AreReturnedWithoutCopies) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("foo", R"("operations": {"a.b.c": []})")), Lines());
  const auto component = sources->ComponentInfo("foo");
  const auto package = sources->PackageInfo("a");
  const auto service = sources->ServiceInfo("a.b");
  ASSERT_TRUE(component && package && service);
  EXPECT_EQ(component->info->packages.at("a"), package);
  EXPECT_EQ(package->services.at("a.b"), service);
  EXPECT_EQ(service->operations.at("c"), sources->OperationInfo("a.b", "c"));
}

TEST(AuthenticationRecords, OutliveTheirSource) {
  const AuthenticationSources sources;
  ASSERT_EQ(sources.Create("m", SchemesFile("foo", R"("operations": {"a.b.c": ["y"]})")), Lines());
  const auto foo = sources->ComponentInfo("foo");
  ASSERT_NE(foo, nullptr);
  ASSERT_EQ(sources->DeleteSource("m"), nullptr);
  EXPECT_EQ(sources->ComponentInfo("foo"), nullptr);
  EXPECT_EQ(ComponentText("foo", *foo->info), R"(component "foo"
  package "a" []
    service "a.b" []
      operation "c" ["why"@"sm"]
)");
}

}  // namespace
}  // namespace Zelk::Testing
