#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zelk/md5.h>

#include "cli/cli_text.h"
#include "cli/hosted.h"

// The queries of the container.

namespace Zelk::Testing {
namespace {

using Bindings::Cli::CommandSvc::Identity;

std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity> Namespace(const std::string& path,
                                                                       const std::string& name) {
  return std::make_shared<const Bindings::Cli::NamespaceSvc::Identity>(path, name);
}

std::shared_ptr<const Identity> Command(const std::string& path, const std::string& name) {
  return std::make_shared<const Identity>(path, name);
}

std::string Md5(const std::string& text) {
  MD5 digest;
  digest.Update(text);
  return digest.hexdigest();
}

TEST(CliContainer, IsNewAndEmptyEveryTime) {
  const CliHost first;
  const CliHost second;
  EXPECT_NE(first.Container(), second.Container());
  EXPECT_EQ(first.Create("foo", CliFile({NamespaceNode("", "foo")})), nullptr);
  EXPECT_EQ(first->ListSources().size(), 1u);
  EXPECT_EQ(second->ListSources().size(), 0u);
  EXPECT_EQ(second->ListNamespaces().size(), 0u);
}

TEST(CliContainer, WithoutSourcesListsNothingAndDigestsNothing) {
  const CliHost host;
  EXPECT_TRUE(host->ListNamespaces().empty());
  EXPECT_TRUE(host->ListCommands(boost::none).empty());
  EXPECT_TRUE(host->ListCommands(std::string("foo")).empty());
  EXPECT_EQ(host->NamespaceFingerprint(), kDigestOfNothing);
  EXPECT_EQ(host->CommandFingerprint(), kDigestOfNothing);
  EXPECT_EQ(host->SourceFingerprint(boost::none), kDigestOfNothing);
}

TEST(CliContainer, WithAnEmptySourceListsNotEvenARoot) {
  const CliHost host({{"foo", CliFile({})}});
  EXPECT_TRUE(host->ListNamespaces().empty());
  EXPECT_EQ(host->NamespaceInfo(Namespace("", "")), nullptr);
}

TEST(CliContainer, ListsNamespacesBySourceThenPathThenNameByTheirBytes) {
  const CliHost host({
      {"b", CliFile({NamespaceNode("", "b"), NamespaceNode("", "B"), NamespaceNode("B", "a")})},
      {"B", CliFile({NamespaceNode("", "b"), NamespaceNode("a", "\\u00e9")})},
      {"", CliFile({NamespaceNode("", "")})},
  });
  EXPECT_EQ(CliTexts(host->ListNamespaces()),
            (Lines{":", ":", ":a", ":b", "a:\xc3\xa9", ":", ":B", ":b", "B:a"}));
}

TEST(CliContainer, ListsCommandsBySourceThenPathThenNameByTheirBytes) {
  const CliHost host({
      {"b", CliFile({CommandNode("foo", "b"), CommandNode("foo", "B"), CommandNode("", "z"),
                     CommandNode("Foo", "c")})},
      {"a", CliFile({CommandNode("foo", "b"), CommandNode("", "")})},
  });
  EXPECT_EQ(CliTexts(host->ListCommands(boost::none)),
            (Lines{":", "foo:b", ":z", "Foo:c", "foo:B", "foo:b"}));
}

TEST(CliContainer, FiltersCommandsByTheExactPath) {
  const CliHost host({
      {"1", CliFile({CommandNode("a.b", "x"), CommandNode("a.b.c", "y"), CommandNode("a", "b"),
                     CommandNode("", "top")})},
      {"2", CliFile({CommandNode("a.b", "w"), CommandNode("a.b", "x")})},
  });

  struct Row {
    const char* filter;
    Lines commands;
  };

  const std::vector<Row> rows = {
      {"a.b", {"a.b:x", "a.b:w", "a.b:x"}},
      {"a.b.c", {"a.b.c:y"}},
      {"a", {"a:b"}},
      {"", {":top"}},
      {"A.B", {}},
      {"a.b.", {}},
      {"b", {}},
      {" a", {}},
      {"a.", {}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CliTexts(host->ListCommands(std::string(row.filter))), row.commands) << row.filter;
  }
}

TEST(CliContainer, AnswersANamespaceFromTheFirstSourceThatHasIt) {
  const CliHost host({
      {"2", CliFile({NamespaceNode("", "foo", "second"), NamespaceNode("foo", "baz")})},
      {"1", CliFile({NamespaceNode("", "foo", "first"), NamespaceNode("foo", "bar")})},
  });
  EXPECT_EQ(CliTexts(host->ListNamespaces()),
            (Lines{":", ":foo", "foo:bar", ":", ":foo", "foo:baz"}));
  EXPECT_EQ(CliText(*host->NamespaceInfo(Namespace("", "foo"))),
            R"(namespace :foo "first" [foo:bar])");
  EXPECT_EQ(CliText(*host->NamespaceInfo(Namespace("foo", "baz"))), R"(namespace foo:baz "" [])");
}

TEST(CliContainer, AnswersACommandFromTheFirstSourceThatHasIt) {
  const CliHost host({
      {"2", CliFile({CommandNode("foo", "bar", "second"), CommandNode("foo", "baz", "only")})},
      {"1", CliFile({CommandNode("foo", "bar", "first")})},
  });
  EXPECT_EQ(host->CommandInfo(Command("foo", "bar"))->description, "first");
  EXPECT_EQ(host->CommandInfo(Command("foo", "baz"))->description, "only");
}

TEST(CliContainer, KeepsTheLaterOfTwoCommandsOfOneIdentity) {
  const CliHost host({{"foo", CliFile({CommandNode("foo", "bar", "earlier"),
                                       CommandNode("foo", "bar", "later")})}});
  EXPECT_EQ(CliTexts(host->ListCommands(boost::none)), Lines{"foo:bar"});
  EXPECT_EQ(host->CommandInfo(Command("foo", "bar"))->description, "later");
}

TEST(CliContainer, DoesNotMakeNamespacesOfCommands) {
  const CliHost host({{"foo", CliFile({CommandNode("a.b", "c")})}});
  EXPECT_TRUE(host->ListNamespaces().empty());
  EXPECT_EQ(host->NamespaceInfo(Namespace("a", "b")), nullptr);
  EXPECT_EQ(host->NamespaceInfo(Namespace("a.b", "c")), nullptr);
}

TEST(CliContainer, DoesNotKnowWhatNoSourceHasNorANullIdentity) {
  const CliHost host({{"foo", CliFile({NamespaceNode("", "foo"), CommandNode("foo", "bar")})}});
  EXPECT_EQ(host->NamespaceInfo(Namespace("foo", "bar")), nullptr);
  EXPECT_EQ(host->NamespaceInfo(Namespace("", "Foo")), nullptr);
  EXPECT_EQ(host->NamespaceInfo(nullptr), nullptr);
  EXPECT_EQ(host->CommandInfo(Command("", "foo")), nullptr);
  EXPECT_EQ(host->CommandInfo(Command("", "foo.bar")), nullptr);
  EXPECT_EQ(host->CommandInfo(nullptr), nullptr);
}

TEST(CliContainer, DigestsTheDigestsOfTheFilesInIdOrder) {
  const std::string foo = CliFile({NamespaceNode("", "foo")});
  const std::string bar = CliFile({CommandNode("foo", "bar")}) + "\n";
  const CliHost host({{"2", foo}, {"1", bar}});
  const std::string expected = Md5(Md5(bar) + Md5(foo));
  EXPECT_EQ(host->NamespaceFingerprint(), expected);
  EXPECT_EQ(host->CommandFingerprint(), expected);
  EXPECT_EQ(host->SourceFingerprint(boost::none), expected);
  EXPECT_EQ(host->SourceFingerprint(std::string("1")), Md5(Md5(bar)));
  EXPECT_EQ(host->SourceFingerprint(std::string("2")), Md5(Md5(foo)));
}

TEST(CliContainer, DigestsOneSourceAsTheDigestOfItsFilesDigestInHex) {
  const std::string file = R"({"cli": []})";
  const CliHost host({{"foo", file}});
  EXPECT_EQ(Md5(file), "b09625fbc0bb3879746960f4ad234b8e");
  constexpr char kExpected[] = "493aab51955e8738fbae689712a9fc94";
  EXPECT_EQ(host->NamespaceFingerprint(), kExpected);
  EXPECT_EQ(host->CommandFingerprint(), kExpected);
  EXPECT_EQ(host->SourceFingerprint(std::string("foo")), kExpected);
}

TEST(CliContainer, ChangesItsFingerprintsOnlyWithAReload) {
  const CliHost host({{"foo", CliFile({})}});
  const std::string before = host->CommandFingerprint();
  const std::string changed = CliFile({NamespaceNode("", "foo")});
  host.Write("foo", changed);
  EXPECT_EQ(host->NamespaceFingerprint(), before);
  EXPECT_EQ(host->CommandFingerprint(), before);
  EXPECT_EQ(host->SourceFingerprint(boost::none), before);
  EXPECT_EQ(host->ReloadSource(std::string("foo")), nullptr);
  EXPECT_EQ(host->NamespaceFingerprint(), Md5(Md5(changed)));
  EXPECT_EQ(host->CommandFingerprint(), Md5(Md5(changed)));
  EXPECT_EQ(host->SourceFingerprint(boost::none), Md5(Md5(changed)));
}

TEST(CliContainer, LeavesRecordsHandedOutAsTheyAre) {
  const CliHost host({{"foo", CliFile({NamespaceNode("", "foo", "old")})}});
  const auto before = host->NamespaceInfo(Namespace("", "foo"));
  host.Write("foo", CliFile({NamespaceNode("", "foo", "new"), NamespaceNode("foo", "bar")}));
  EXPECT_EQ(host->ReloadSource(boost::none), nullptr);
  EXPECT_EQ(CliText(*host->NamespaceInfo(Namespace("", "foo"))),
            R"(namespace :foo "new" [foo:bar])");
  EXPECT_EQ(host->DeleteSource("foo"), nullptr);
  EXPECT_EQ(CliText(*before), R"(namespace :foo "old" [])");
}

}  // namespace
}  // namespace Zelk::Testing
