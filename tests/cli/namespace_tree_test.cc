#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "cli/source_data.h"
#include "support/cli_text.h"
#include "support/small_stack.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

using Bindings::Cli::NamespaceSvc::Identity;
using Bindings::Cli::NamespaceSvc::Info;
using ::Com::Orvane::Zelk::Metadata::SourceType;
using Testing::CliText;
using Testing::Lines;

SourceData NewSource() {
  return SourceData(std::make_shared<const Bindings::Cli::SourceSvc::CreateSpec>(
      "foo", SourceType::LOCAL_FILE, std::string("bar"), boost::none));
}

/// A namespace as a file names it; its description is its name in brackets.
NamespacePtr Node(const Identity& identity) {
  return std::make_shared<Info>(std::make_shared<const Identity>(identity),
                                "<" + identity.name + ">",
                                std::list<std::shared_ptr<const Identity>>());
}

/// The tree after the registrations, in the order of the identities.
Lines Tree(const std::vector<Identity>& registrations) {
  SourceData source = NewSource();
  for (const auto& identity : registrations) source.RegisterNsNode(Node(identity));
  Lines lines;
  for (const auto& [identity, info] : source.namespaces) {
    EXPECT_EQ(*identity, *info->identity);
    lines.push_back(CliText(*info));
  }
  return lines;
}

TEST(NamespaceTree, IsEmptyByDefault) {
  EXPECT_EQ(Tree({}), Lines());
}

TEST(NamespaceTree, AddsImpliedParentsAndTheRoot) {
  EXPECT_EQ(Tree({{"a", "b"}}), (Lines{
                                    R"(namespace : "Root namespace" [:a, :])",
                                    R"(namespace :a "a namespace" [a:b])",
                                    R"(namespace a:b "<b>" [])",
                                }));
}

TEST(NamespaceTree, AddsEveryParentOfALongPath) {
  EXPECT_EQ(Tree({{"a.b.c", "d"}}), (Lines{
                                        R"(namespace : "Root namespace" [:a, :])",
                                        R"(namespace :a "a namespace" [a:b])",
                                        R"(namespace a:b "b namespace" [a.b:c])",
                                        R"(namespace a.b:c "c namespace" [a.b.c:d])",
                                        R"(namespace a.b.c:d "<d>" [])",
                                    }));
}

TEST(NamespaceTree, ListsChildrenInTheOrderOfRegistration) {
  EXPECT_EQ(Tree({{"", "c"}, {"", "a"}, {"", "b"}}),
            (Lines{
                R"(namespace : "Root namespace" [:c, :, :a, :b])",
                R"(namespace :a "<a>" [])",
                R"(namespace :b "<b>" [])",
                R"(namespace :c "<c>" [])",
            }));
}

TEST(NamespaceTree, KeepsAParentDeclaredBeforeItsChildren) {
  EXPECT_EQ(Tree({{"", "a"}, {"a", "c"}, {"a", "b"}}),
            (Lines{
                R"(namespace : "Root namespace" [:a, :])",
                R"(namespace :a "<a>" [a:c, a:b])",
                R"(namespace a:b "<b>" [])",
                R"(namespace a:c "<c>" [])",
            }));
}

TEST(NamespaceTree, LosesChildrenDeclaredBeforeTheirParent) {
  EXPECT_EQ(Tree({{"a", "b"}, {"", "a"}, {"a", "c"}}),
            (Lines{
                R"(namespace : "Root namespace" [:a, :, :a])",
                R"(namespace :a "<a>" [a:c])",
                R"(namespace a:b "<b>" [])",
                R"(namespace a:c "<c>" [])",
            }));
}

TEST(NamespaceTree, ListsARepeatedNamespaceEachTime) {
  EXPECT_EQ(Tree({{"", "a"}, {"", "a"}, {"", "a"}}),
            (Lines{
                R"(namespace : "Root namespace" [:a, :, :a, :a])",
                R"(namespace :a "<a>" [])",
            }));
}

TEST(NamespaceTree, ListsADeclaredRootAmongItsChildren) {
  EXPECT_EQ(Tree({{"", ""}}), Lines{R"(namespace : "<>" [:])"});
  EXPECT_EQ(Tree({{"", ""}, {"", ""}}), Lines{R"(namespace : "<>" [:])"});
}

TEST(NamespaceTree, AppendsToARootDeclaredFirst) {
  EXPECT_EQ(Tree({{"", ""}, {"", "a"}}), (Lines{
                                             R"(namespace : "<>" [:, :a])",
                                             R"(namespace :a "<a>" [])",
                                         }));
}

TEST(NamespaceTree, LosesChildrenDeclaredBeforeTheRoot) {
  EXPECT_EQ(Tree({{"", "a"}, {"", ""}}), (Lines{
                                             R"(namespace : "<>" [:])",
                                             R"(namespace :a "<a>" [])",
                                         }));
}

TEST(NamespaceTree, KeepsTheLastDescription) {
  SourceData source = NewSource();
  source.RegisterNsNode(Node({"", "a"}));
  const auto later = std::make_shared<Info>();
  later->identity = std::make_shared<const Identity>("", "a");
  later->description = "later";
  source.RegisterNsNode(later);
  EXPECT_EQ(source.namespaces.at(later->identity), later);
}

TEST(NamespaceTree, IsOrderedByTheBytesOfPathThenName) {
  EXPECT_EQ(Tree({{"", "b"}, {"", "B"}, {"", "b-"}, {"B", "z"}, {"", "\xc3\xa9"}}),
            (Lines{
                "namespace : \"Root namespace\" [:b, :, :B, :b-, :\xc3\xa9]",
                R"(namespace :B "<B>" [B:z])",
                R"(namespace :b "<b>" [])",
                R"(namespace :b- "<b->" [])",
                "namespace :\xc3\xa9 \"<\\xc3\\xa9>\" []",
                R"(namespace B:z "<z>" [])",
            }));
}

TEST(NamespaceTree, AllowsEmptyPartsOfAPath) {
  struct Row {
    const char* path;
    Lines tree;
  };

  const std::vector<Row> rows = {
      {".", {R"(namespace : "Root namespace" [.:x, :])", R"(namespace .:x "<x>" [])"}},
      {".a",
       {R"(namespace : "Root namespace" [:a, :])", R"(namespace :a "a namespace" [.a:x])",
        R"(namespace .a:x "<x>" [])"}},
      {"a.",
       {R"(namespace : "Root namespace" [:a, :])", R"(namespace :a "a namespace" [a:])",
        R"(namespace a: "Root namespace" [a.:x])", R"(namespace a.:x "<x>" [])"}},
      {"a..b",
       {R"(namespace : "Root namespace" [:a, :])", R"(namespace :a "a namespace" [a:])",
        R"(namespace a: "Root namespace" [a.:b])", R"(namespace a.:b "b namespace" [a..b:x])",
        R"(namespace a..b:x "<x>" [])"}},
  };
  for (const auto& row : rows) EXPECT_EQ(Tree({{row.path, "x"}}), row.tree) << row.path;
}

TEST(NamespaceTree, AllowsFullStopsInAName) {
  EXPECT_EQ(Tree({{"", "a.b"}, {"a.b", "c"}}), (Lines{
                                                   R"(namespace : "Root namespace" [:a.b, :, :a])",
                                                   R"(namespace :a "a namespace" [a:b])",
                                                   R"(namespace :a.b "<a.b>" [])",
                                                   R"(namespace a:b "b namespace" [a.b:c])",
                                                   R"(namespace a.b:c "<c>" [])",
                                               }));
}

TEST(NamespaceTree, NeedsNoStackForALongPath) {
  static constexpr std::size_t kParts = 20000;
  // Parts without a letter: what the namespaces on the way hold grows with the square of the path.
  Testing::RunOnSmallStack(256 * 1024, [] {
    SourceData source = NewSource();
    const auto node = Node({std::string(kParts - 1, '.'), "x"});
    source.RegisterNsNode(node);
    // Of the parts above the node, the first two are the root's own and its child's.
    EXPECT_EQ(source.namespaces.size(), kParts);
    EXPECT_EQ(source.namespaces.count(node->identity), 1u);
    EXPECT_EQ(CliText(*source.namespaces.begin()->second),
              R"(namespace : "Root namespace" [.:, :])");
  });
}

TEST(RegisterWithParent, ReturnsNothingIfTheParentIsKnown) {
  SourceData source = NewSource();
  source.RegisterNsNode(Node({"", "a"}));
  EXPECT_EQ(source.RegisterWithParent(std::make_shared<const Identity>("a", "b")), nullptr);
  EXPECT_EQ(CliText(*source.namespaces.at(SourceData::Str2NsId("a"))),
            R"(namespace :a "<a>" [a:b])");
}

TEST(RegisterWithParent, ReturnsTheMissingParent) {
  SourceData source = NewSource();
  const auto identity = std::make_shared<const Identity>("a.b", "c");
  const auto parent = source.RegisterWithParent(identity);
  ASSERT_TRUE(parent);
  EXPECT_EQ(CliText(*parent), R"(namespace a:b "b namespace" [a.b:c])");
  EXPECT_EQ(parent->children.front(), identity);
}

TEST(Str2NsId, SplitsAtTheLastFullStop) {
  struct Row {
    const char* path;
    Identity identity;
  };

  const std::vector<Row> rows = {
      {"", {"", ""}},        {"a", {"", "a"}},     {"a.b", {"a", "b"}}, {"a.b.c", {"a.b", "c"}},
      {".", {"", ""}},       {"..", {".", ""}},    {"a.", {"a", ""}},   {".a", {"", "a"}},
      {"a..b", {"a.", "b"}}, {"a b", {"", "a b"}}, {" .a", {" ", "a"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CliText(*SourceData::Str2NsId(row.path)), CliText(row.identity)) << row.path;
  }
}

TEST(Str2NsId, KeepsZeroBytes) {
  const std::string path("a\0.b\0", 5);
  EXPECT_EQ(*SourceData::Str2NsId(path), Identity(path.substr(0, 2), path.substr(3)));
}

TEST(CliSourceData, IsEmptyButForItsSpec) {
  const auto spec = std::make_shared<const Bindings::Cli::SourceSvc::CreateSpec>(
      "foo", SourceType::REMOTE, boost::none, std::string("bar"));
  const SourceData source(spec);
  EXPECT_EQ(source.spec, spec);
  EXPECT_EQ(source.info->description, "foo");
  EXPECT_EQ(source.info->type, SourceType::REMOTE);
  EXPECT_EQ(Testing::Quoted(source.info->file_path), "none");
  EXPECT_EQ(Testing::Quoted(source.info->address), "\"bar\"");
  EXPECT_TRUE(source.namespaces.empty());
  EXPECT_TRUE(source.commands.empty());
  EXPECT_EQ(source.fingerprint + source.namespace_fingerprint + source.command_fingerprint, "");
}

}  // namespace
}  // namespace Zelk::Provider::Metadata::Cli
