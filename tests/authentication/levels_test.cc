#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "authentication/parsed.h"

namespace Zelk::Provider::Metadata::Authentication {
namespace {

using Parser = JsonMetadataParser;
using Testing::Json;
using Testing::MessageTexts;

struct ComponentRow {
  const char* members;
  const char* text;
};

const ComponentRow kLevels[] = {
    // Levels that are not listed are made up, without schemes.
    {R"("operations": {"vm.power.start": ["x"]})",
     R"(component "foo"
  package "vm" []
    service "vm.power" []
      operation "start" ["ex"]
)"},
    {R"("services": {"vm.power": ["x"]})",
     R"(component "foo"
  package "vm" []
    service "vm.power" ["ex"]
)"},
    {R"("packages": {"vm": ["x"]})",
     R"(component "foo"
  package "vm" ["ex"]
)"},
    {R"("operations": {"vm.power.start": ["x"]}, "services": {"vm.power": ["y"]})",
     R"(component "foo"
  package "vm" []
    service "vm.power" ["why"@"sm"]
      operation "start" ["ex"]
)"},
    {R"("operations": {"vm.power.start": ["x"]}, "packages": {"vm": ["y"]})",
     R"(component "foo"
  package "vm" ["why"@"sm"]
    service "vm.power" []
      operation "start" ["ex"]
)"},
    {R"("services": {"vm.power": ["x"]}, "packages": {"vm": ["y"]})",
     R"(component "foo"
  package "vm" ["why"@"sm"]
    service "vm.power" ["ex"]
)"},
};

TEST(Levels, AreImpliedWithoutSchemes) {
  for (const auto& row : kLevels) {
    const auto parsed = ParseComponent(Foo(row.members));
    EXPECT_TRUE(parsed.accepted) << row.members;
    EXPECT_EQ(parsed.components, row.text) << row.members;
  }
}

TEST(Levels, InheritNoSchemes) {
  const auto parsed = ParseComponent(Foo(R"(
      "operations": {"vm.power.start": [], "vm.power.stop": ["x"]},
      "services": {"vm.power": [], "vm.disk": []},
      "packages": {"vm": ["x", "y"], "net": []})"));
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "net" []
  package "vm" ["ex", "why"@"sm"]
    service "vm.disk" []
    service "vm.power" []
      operation "start" []
      operation "stop" ["ex"]
)");
}

TEST(Levels, TakeOnlyTheirOwnChildren) {
  const auto parsed = ParseComponent(Foo(R"(
      "operations": {"vm.power.start": [], "vm.powers.start": [], "vm.power.disk.add": [],
                     "net.if.up": []},
      "services": {"vm.power": ["x"]},
      "packages": {"vm": ["y"]})"));
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "net" []
    service "net.if" []
      operation "up" []
  package "vm" ["why"@"sm"]
    service "vm.power" ["ex"]
      operation "start" []
    service "vm.powers" []
      operation "start" []
  package "vm.power" []
    service "vm.power.disk" []
      operation "add" []
)");
}

TEST(Levels, AreOrderedByTheBytesOfTheirKeys) {
  const auto parsed = ParseComponent(Foo(R"(
      "operations": {"a.b.z": [], "a.b.\u00e4": [], "a.b.A": [], "a.b.a": []},
      "packages": {"b": [], "B": [], "a.": []})"));
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "B" []
  package "a" []
    service "a.b" []
      operation "A" []
      operation "a" []
      operation "z" []
      operation "\xc3\xa4" []
  package "a." []
  package "b" []
)");
}

TEST(Levels, KeepZeroBytesInNames) {
  const auto parsed = ParseComponent(R"({"name": "f\u0000o",
      "schemes": {"x\u0000": {"authenticationScheme": "e\u0000x", "type": "SESSIONLESS"}},
      "operations": {"a\u0000.b\u0000.c\u0000": ["x\u0000"], "a.b.c": []},
      "services": {"a\u0000.b\u0000": []},
      "packages": {"a\u0000": ["x\u0000"]}})");
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.messages, Lines());
  EXPECT_EQ(parsed.components, R"(component "f\x00o"
  package "a" []
    service "a.b" []
      operation "c" []
  package "a\x00" ["e\x00x"]
    service "a\x00.b\x00" []
      operation "c\x00" ["e\x00x"]
)");
}

TEST(Packages, MayHaveAnyName) {
  const auto parsed = ParseComponent(Foo(R"("packages": {"": ["x"], ".": [], "a..b": []})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "" ["ex"]
  package "." []
  package "a..b" []
)");
}

TEST(RepeatedOperation, FirstOneWins) {
  for (const auto* services : {"", R"(, "services": {"a.b": []})"}) {
    const auto parsed = ParseComponent(Foo(
        std::string(R"("operations": {"a.b.c": ["x"], "a.b.d": [], "a.b.c": ["y"]})") + services));
    EXPECT_TRUE(parsed.accepted) << services;
    EXPECT_EQ(parsed.components, R"(component "foo"
  package "a" []
    service "a.b" []
      operation "c" ["ex"]
      operation "d" []
)") << services;
  }
}

TEST(RepeatedService, FirstOneWinsWithItsOperations) {
  for (const auto* packages : {"", R"(, "packages": {"a": []})"}) {
    const auto parsed = ParseComponent(Foo(
        std::string(R"("operations": {"a.b.c": []}, "services": {"a.b": ["x"], "a.b": ["y"]})") +
        packages));
    EXPECT_TRUE(parsed.accepted) << packages;
    EXPECT_EQ(parsed.components, R"(component "foo"
  package "a" []
    service "a.b" ["ex"]
      operation "c" []
)") << packages;
  }
}

TEST(RepeatedPackage, LastOneWinsWithoutTheServicesOfTheFirst) {
  const auto parsed =
      ParseComponent(Foo(R"("services": {"a.b": []}, "packages": {"a": ["x"], "a": ["y"]})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, "component \"foo\"\n  package \"a\" [\"why\"@\"sm\"]\n");
}

TEST(RepeatedScheme, LastOneWins) {
  const auto parsed = ParseComponent(R"({"name": "foo", "packages": {"a": ["x"]}, "schemes": {
      "x": {"authenticationScheme": "first", "type": "SESSIONLESS"},
      "x": {"authenticationScheme": "second", "type": "SESSIONLESS"}}})");
  EXPECT_EQ(parsed.components, "component \"foo\"\n  package \"a\" [\"second\"]\n");
}

struct SplitRow {
  const char* fqdn;
  std::pair<std::string, std::string> parts;
};

TEST(SplitFqdn, SplitsAtTheLastDot) {
  const SplitRow rows[] = {
      {"", {"", ""}},        {"a", {"", "a"}},        {".", {"", ""}},      {"a.", {"a", ""}},
      {".a", {"", "a"}},     {"a.b", {"a", "b"}},     {"..", {".", ""}},    {"a..b", {"a.", "b"}},
      {"a.b.", {"a.b", ""}}, {"a.b.c", {"a.b", "c"}}, {"a-b", {"", "a-b"}},
  };
  for (const auto& row : rows) EXPECT_EQ(Parser::SplitFqdn(row.fqdn), row.parts) << row.fqdn;
}

TEST(SplitFqdn, KeepsZeroBytes) {
  const std::string fqdn("a\0b.c\0", 6);
  EXPECT_EQ(Parser::SplitFqdn(fqdn), std::pair(std::string("a\0b", 3), std::string("c\0", 2)));
}

TEST(LeftOverOperations, AreDroppedIfTheirServiceHasNoPackage) {
  const auto parsed = ParseComponent(Foo(R"("operations": {"power.start": ["x"]},
                                           "services": {"a.b": []}, "packages": {"c": []})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "a" []
    service "a.b" []
  package "c" []
)");
  EXPECT_EQ(parsed.messages, Lines{InvalidServiceId("power")});
}

TEST(LeftOverOperations, AreDroppedAfterTheFirstInvalidServiceId) {
  const auto parsed = ParseComponent(Foo(R"(
      "operations": {"z.y.x": [], "o.p": [], "m.n": [], "a.b.c": []}, "services": {"z.w": []})"));
  EXPECT_TRUE(parsed.accepted);
  EXPECT_EQ(parsed.components, R"(component "foo"
  package "a" []
    service "a.b" []
      operation "c" []
  package "z" []
    service "z.w" []
)");
  EXPECT_EQ(parsed.messages, (Lines{InvalidServiceId("m"), MissingField("packages")}));
}

TEST(LeftOverOperations, NeedAPackageAndANameInTheirServiceId) {
  for (const auto& [operation, service] : std::vector<std::pair<std::string, std::string>>{
           {"b.c", "b"}, {".b.c", ".b"}, {"a..c", "a."}, {"..c", "."}}) {
    const auto parsed = ParseComponent(Foo(R"("operations": {")" + operation + R"(": []})"));
    EXPECT_TRUE(parsed.accepted) << operation;
    EXPECT_EQ(parsed.components, "component \"foo\"\n") << operation;
    EXPECT_EQ(parsed.messages, (Lines{MissingField("services"), InvalidServiceId(service),
                                      MissingField("packages")}))
        << operation;
  }
}

TEST(LeftOverOperations, AreNotCheckedIfTheServiceIsListed) {
  const auto parsed = ParseComponent(Foo(R"("operations": {"a.b.c": [], "power.start": []},
                                           "services": {"power": []})"));
  EXPECT_FALSE(parsed.accepted);
  EXPECT_EQ(parsed.messages, Lines{InvalidServiceId("power")});
}

const Parser::SchemeTable kNoSchemes;

using Operations = Parser::Unclaimed<Bindings::Authentication::OperationInfo>;
using Services = Parser::Unclaimed<Bindings::Authentication::ServiceInfo>;
using Packages = Parser::Table<Bindings::Authentication::PackageInfo>;

Operations ReadOperations(const std::string& json) {
  Operations operations;
  Errors errors;
  EXPECT_TRUE(Parser::ParseOperations(Json(json), kNoSchemes, operations, errors)) << json;
  EXPECT_EQ(MessageTexts(errors), Lines()) << json;
  return operations;
}

/// The keys of unclaimed records, each after the key of its owner.
template <typename Record>
Lines Keys(const Parser::Unclaimed<Record>& records) {
  Lines keys;
  for (const auto& [owner, table] : records) {
    for (const auto& [key, record] : table) keys.push_back(owner + " / " + key);
  }
  return keys;
}

TEST(ParseOperations, GroupsOperationsByService) {
  EXPECT_EQ(Keys(ReadOperations(R"({"m.n": [], "a.b.d": [], "m.o": [], "a.b.c": []})")),
            (Lines{"a.b / c", "a.b / d", "m / n", "m / o"}));
}

TEST(ParseOperations, KeepsTheFirstOfARepeatedOperation) {
  const Parser::SchemeTable schemes{
      {"s", std::make_shared<const Bindings::Authentication::AuthenticationInfo>(
                Bindings::Authentication::AuthenticationInfoEnumerations::SchemeType::SESSIONLESS,
                boost::none, "s")}};
  Operations operations;
  Errors errors;
  EXPECT_TRUE(Parser::ParseOperations(Json(R"({"a.b": ["s"], "c.d": [], "a.b": []})"), schemes,
                                      operations, errors));
  EXPECT_EQ(operations.at("a").at("b")->schemes.size(), 1U);
}

TEST(ParseOperations, ReturnsNothingForANonObjectLikeTheOtherTables) {
  Operations operations;
  Services services;
  Packages packages;
  Errors errors;
  EXPECT_TRUE(Parser::ParseOperations(Json("[1]"), kNoSchemes, operations, errors));
  EXPECT_TRUE(Parser::ParseServices(Json("[1]"), kNoSchemes, operations, services, errors));
  EXPECT_TRUE(Parser::ParsePackages(Json("[1]"), kNoSchemes, services, packages, errors));
  EXPECT_TRUE(operations.empty() && services.empty() && packages.empty());
  EXPECT_EQ(MessageTexts(errors), Lines());
}

TEST(ParseServices, TakesTheOperationsOfItsServices) {
  auto operations = ReadOperations(R"({"a.b.c": [], "a.b.d": [], "a.e.f": []})");
  Services services;
  Errors errors;
  EXPECT_TRUE(
      Parser::ParseServices(Json(R"({"a.b": []})"), kNoSchemes, operations, services, errors));
  EXPECT_EQ(Keys(operations), Lines{"a.e / f"});
  EXPECT_EQ(Keys(services), Lines{"a / a.b"});
  EXPECT_EQ(services.at("a").at("a.b")->operations.size(), 2U);
}

TEST(ParsePackages, TakesTheServicesOfItsPackages) {
  Operations operations;
  Services services;
  Packages packages;
  Errors errors;
  ASSERT_TRUE(Parser::ParseServices(Json(R"({"a.b": [], "a.c": [], "d.e": []})"), kNoSchemes,
                                    operations, services, errors));
  EXPECT_TRUE(Parser::ParsePackages(Json(R"({"a": []})"), kNoSchemes, services, packages, errors));
  EXPECT_EQ(Keys(services), Lines{"d / d.e"});
  EXPECT_EQ(packages.at("a")->services.size(), 2U);
  EXPECT_TRUE(Parser::CreatePackagesFromServices(services, packages));
  EXPECT_TRUE(services.empty());
  EXPECT_EQ(packages.at("d")->services.size(), 1U);
}

TEST(CreateServicesFromOperations, StopsAtAnInvalidServiceId) {
  auto operations = ReadOperations(R"({"a.b.c": [], "m.n": [], "m.o": [], "z.y.x": []})");
  Services services;
  Errors errors;
  EXPECT_FALSE(Parser::CreateServicesFromOperations(operations, services, errors));
  EXPECT_EQ(Keys(operations), Lines{"z.y / x"});
  EXPECT_EQ(Keys(services), Lines{"a / a.b"});
  EXPECT_EQ(MessageTexts(errors), Lines{InvalidServiceId("m")});
}

TEST(CreateServicesFromOperations, ReturnsNothingForNoOperations) {
  Operations operations;
  Services services;
  Errors errors;
  EXPECT_TRUE(Parser::CreateServicesFromOperations(operations, services, errors));
  EXPECT_TRUE(services.empty());
  EXPECT_EQ(MessageTexts(errors), Lines());
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Authentication
