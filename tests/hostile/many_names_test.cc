#include <cstddef>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/cli_files.h"
#include "support/small_stack.h"
#include "surface/domains_under_test.h"

// A million records in one file, of one name or of as many: by the rules of each domain for names
// that repeat, and without a level of anything that costs more than its own size.

namespace Zelk::Testing {
namespace {

using testing::ElementsAre;

constexpr int kMany = ZELK_MILLION;

/// `one(n)` for every n, as the elements of an array or the members of an object.
template <typename One>
std::string AMillionOf(const One& one) {
  std::string text = one(0);
  for (int number = 1; number < kMany; ++number) {
    text += ',';
    text += one(number);
  }
  return text;
}

std::string Numbered(const std::string& name, int number) {
  return name + std::to_string(number);
}

std::string Last(const std::string& name) {
  return Numbered(name, kMany - 1);
}

/// A component with that text inside its package's array of enumerations.
std::string EnumerationsFile(const std::string& enumerations) {
  return Replaced(MetamodelFile(Component("foo", {Package("p")})), R"("enumerations": [])",
                  R"("enumerations": [)" + enumerations + "]");
}

TEST(MillionEnumerationsOfOneName, FirstOneWins) {
  const MetamodelSources sources;
  ASSERT_EQ(sources.Create("m", EnumerationsFile(AMillionOf([](int number) {
                             return Enumeration("e").Doc(Numbered("d", number)).Json();
                           }))),
            Lines());
  EXPECT_THAT(sources->ListEnumerations(), ElementsAre("e"));
  EXPECT_EQ(sources->EnumerationInfo("e")->documentation, "d0");
}

TEST(MillionEnumerations, AreListedAndFound) {
  const MetamodelSources sources;
  ASSERT_EQ(sources.Create("m", EnumerationsFile(AMillionOf([](int number) {
                             return Enumeration(Numbered("e", number)).Json();
                           }))),
            Lines());
  EXPECT_EQ(sources->ListEnumerations().size(), std::size_t{kMany});
  EXPECT_NE(sources->EnumerationInfo(Last("e")), nullptr);
  EXPECT_EQ(sources->EnumerationInfo(Numbered("e", kMany)), nullptr);
}

TEST(MillionAnnotationsOfOneName, LastOneWins) {
  const MetamodelSources sources;
  ASSERT_EQ(
      sources.Create("m", MetamodelFile(Component("foo", {}).Annotated(AMillionOf([](int number) {
                       return R"("A": {"value": ")" + Numbered("v", number) + "\"}";
                     })))),
      Lines());
  const auto component = sources->ComponentInfo("foo")->info;
  ASSERT_EQ(component->metadata.size(), 1U);
  EXPECT_EQ(*component->metadata.at("A")->elements.at("value")->string_value, Last("v"));
}

TEST(MillionAnnotations, AreKept) {
  const MetamodelSources sources;
  ASSERT_EQ(
      sources.Create("m", MetamodelFile(Component("foo", {}).Annotated(AMillionOf([](int number) {
                       return Numbered("\"A", number) + R"(": {"value": ")" +
                              Numbered("v", number) + "\"}";
                     })))),
      Lines());
  const auto component = sources->ComponentInfo("foo")->info;
  EXPECT_EQ(component->metadata.size(), std::size_t{kMany});
  EXPECT_EQ(*component->metadata.at(Last("A"))->elements.at("value")->string_value, Last("v"));
}

std::string ComponentFile(const std::string& schemes, const std::string& packages) {
  return R"({"authentication": {"component": {"name": "foo", "schemes": {)" + schemes +
         R"(}, "packages": {)" + packages + "}}}}";
}

std::string SchemeMember(const std::string& name, const std::string& scheme) {
  return "\"" + name + R"(": {"authenticationScheme": ")" + scheme + R"(", "type": "SESSIONLESS"})";
}

std::string FirstScheme(const AuthenticationSources& sources, const std::string& package) {
  return sources->PackageInfo(package)->schemes.front()->scheme;
}

TEST(MillionSchemesOfOneName, LastOneWins) {
  const AuthenticationSources sources;
  const auto scheme = [](int number) { return SchemeMember("x", Numbered("s", number)); };
  ASSERT_EQ(sources.Create("m", ComponentFile(AMillionOf(scheme), R"("p": ["x"])")), Lines());
  EXPECT_EQ(FirstScheme(sources, "p"), Last("s"));
}

TEST(MillionSchemes, CanBeReferenced) {
  const AuthenticationSources sources;
  const auto scheme = [](int number) {
    return SchemeMember(Numbered("x", number), Numbered("s", number));
  };
  ASSERT_EQ(
      sources.Create("m", ComponentFile(AMillionOf(scheme), "\"p\": [\"" + Last("x") + "\"]")),
      Lines());
  EXPECT_EQ(FirstScheme(sources, "p"), Last("s"));
}

TEST(MillionPackages, AreListedAndFound) {
  const AuthenticationSources sources;
  const auto package = [](int number) { return Numbered("\"p", number) + R"(": ["x"])"; };
  ASSERT_EQ(sources.Create("m", ComponentFile(SchemeMember("x", "s"), AMillionOf(package))),
            Lines());
  EXPECT_EQ(sources->ListPackages().size(), std::size_t{kMany});
  EXPECT_EQ(FirstScheme(sources, Last("p")), "s");
}

std::shared_ptr<const CliUnderTest::Identity> CommandIdentity(const std::string& name) {
  return std::make_shared<const CliUnderTest::Identity>("p", name);
}

std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity> NamespaceIdentity(
    const std::string& path, const std::string& name) {
  return std::make_shared<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity>(path,
                                                                                            name);
}

TEST(MillionCommandsOfOneName, LastOneWins) {
  const CliSources sources;
  const auto command = [](int number) { return CommandNode("p", "c", Numbered("d", number)); };
  ASSERT_EQ(sources.Create("m", CliFile({AMillionOf(command)})), Lines());
  EXPECT_THAT(sources.Names(), ElementsAre("c"));
  EXPECT_EQ(sources->CommandInfo(CommandIdentity("c"))->description, Last("d"));
}

TEST(MillionCommands, AreListedAndFound) {
  const CliSources sources;
  const auto command = [](int number) { return CommandNode("p", Numbered("c", number), ""); };
  ASSERT_EQ(sources.Create("m", CliFile({AMillionOf(command)})), Lines());
  EXPECT_EQ(sources.Names().size(), std::size_t{kMany});
  EXPECT_NE(sources->CommandInfo(CommandIdentity(Last("c"))), nullptr);
}

TEST(MillionNamespaces, AreChildrenOfOneParent) {
  const CliSources sources;
  const auto node = [](int number) { return NamespaceNode("p", Numbered("n", number)); };
  ASSERT_EQ(sources.Create("m", CliFile({AMillionOf(node)})), Lines());
  EXPECT_EQ(sources->ListNamespaces().size(), std::size_t{kMany} + 2);
  EXPECT_EQ(sources->NamespaceInfo(NamespaceIdentity("", "p"))->children.size(),
            std::size_t{kMany});
}

// What the namespaces on the way hold grows with the square of the path.
constexpr std::size_t kPathParts = 20'000;

TEST(LongNamespacePath, NeedsNoStack) {
  RunOnSmallStack(std::size_t{256} * 1024, [] {
    const CliSources sources;
    const std::string path(kPathParts - 1, '.');
    ASSERT_EQ(sources.Create("m", CliFile({NamespaceNode(path, "x")})), Lines());
    EXPECT_EQ(sources->ListNamespaces().size(), kPathParts);
    EXPECT_NE(sources->NamespaceInfo(NamespaceIdentity(path, "x")), nullptr);
    EXPECT_EQ(sources->NamespaceInfo(NamespaceIdentity("", ""))->children.size(), 2U);
  });
}

}  // namespace
}  // namespace Zelk::Testing
