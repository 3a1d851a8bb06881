#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/cli_files.h"
#include "support/cli_text.h"
#include "surface/cli_under_test.h"

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

TEST(CliQueries, ListNothingWithoutSources) {
  const CliSources sources;
  EXPECT_TRUE(sources->ListNamespaces().empty());
  EXPECT_TRUE(sources->ListCommands(boost::none).empty());
  EXPECT_TRUE(sources->ListCommands(std::string("foo")).empty());
  EXPECT_EQ(sources->NamespaceFingerprint(), kDigestOfNothing);
  EXPECT_EQ(sources->CommandFingerprint(), kDigestOfNothing);
  EXPECT_EQ(sources->SourceFingerprint(boost::none), kDigestOfNothing);
}

TEST(CliQueries, HaveNoRootInAnEmptySource) {
  const CliSources sources{{"foo", CliFile({})}};
  EXPECT_TRUE(sources->ListNamespaces().empty());
  EXPECT_EQ(sources->NamespaceInfo(Namespace("", "")), nullptr);
}

TEST(CliQueries, ListNamespacesBySourceThenPathThenName) {
  const CliSources sources{
      {"b", CliFile({NamespaceNode("", "b"), NamespaceNode("", "B"), NamespaceNode("B", "a")})},
      {"B", CliFile({NamespaceNode("", "b"), NamespaceNode("a", "\\u00e9")})},
      {"", CliFile({NamespaceNode("", "")})},
  };
  EXPECT_EQ(CliTexts(sources->ListNamespaces()),
            (Lines{":", ":", ":a", ":b", "a:\xc3\xa9", ":", ":B", ":b", "B:a"}));
}

TEST(CliQueries, ListCommandsBySourceThenPathThenName) {
  const CliSources sources{
      {"b", CliFile({CommandNode("foo", "b"), CommandNode("foo", "B"), CommandNode("", "z"),
                     CommandNode("Foo", "c")})},
      {"a", CliFile({CommandNode("foo", "b"), CommandNode("", "")})},
  };
  EXPECT_EQ(CliTexts(sources->ListCommands(boost::none)),
            (Lines{":", "foo:b", ":z", "Foo:c", "foo:B", "foo:b"}));
}

TEST(CliQueries, FilterCommandsByTheExactPath) {
  const CliSources sources{
      {"1", CliFile({CommandNode("a.b", "x"), CommandNode("a.b.c", "y"), CommandNode("a", "b"),
                     CommandNode("", "top")})},
      {"2", CliFile({CommandNode("a.b", "w"), CommandNode("a.b", "x")})},
  };

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
    EXPECT_EQ(CliTexts(sources->ListCommands(std::string(row.filter))), row.commands) << row.filter;
  }
}

TEST(CliQueries, PreferTheNamespaceOfTheFirstSource) {
  const CliSources sources{
      {"2", CliFile({NamespaceNode("", "foo", "second"), NamespaceNode("foo", "baz")})},
      {"1", CliFile({NamespaceNode("", "foo", "first"), NamespaceNode("foo", "bar")})},
  };
  EXPECT_EQ(CliTexts(sources->ListNamespaces()),
            (Lines{":", ":foo", "foo:bar", ":", ":foo", "foo:baz"}));
  EXPECT_EQ(CliText(*sources->NamespaceInfo(Namespace("", "foo"))),
            R"(namespace :foo "first" [foo:bar])");
  EXPECT_EQ(CliText(*sources->NamespaceInfo(Namespace("foo", "baz"))),
            R"(namespace foo:baz "" [])");
}

TEST(CliQueries, PreferTheCommandOfTheFirstSource) {
  const CliSources sources{
      {"2", CliFile({CommandNode("foo", "bar", "second"), CommandNode("foo", "baz", "only")})},
      {"1", CliFile({CommandNode("foo", "bar", "first")})},
  };
  EXPECT_EQ(sources->CommandInfo(Command("foo", "bar"))->description, "first");
  EXPECT_EQ(sources->CommandInfo(Command("foo", "baz"))->description, "only");
}

TEST(RepeatedCommand, LastOneWins) {
  const CliSources sources{
      {"foo", CliFile({CommandNode("foo", "bar", "earlier"), CommandNode("foo", "bar", "later")})}};
  EXPECT_EQ(CliTexts(sources->ListCommands(boost::none)), Lines{"foo:bar"});
  EXPECT_EQ(sources->CommandInfo(Command("foo", "bar"))->description, "later");
}

TEST(CliQueries, ImplyNoNamespacesOfCommands) {
  const CliSources sources{{"foo", CliFile({CommandNode("a.b", "c")})}};
  EXPECT_TRUE(sources->ListNamespaces().empty());
  EXPECT_EQ(sources->NamespaceInfo(Namespace("a", "b")), nullptr);
  EXPECT_EQ(sources->NamespaceInfo(Namespace("a.b", "c")), nullptr);
}

TEST(CliQueries, ReturnNullForUnknownAndNullIdentities) {
  const CliSources sources{{"foo", CliFile({NamespaceNode("", "foo"), CommandNode("foo", "bar")})}};
  EXPECT_EQ(sources->NamespaceInfo(Namespace("foo", "bar")), nullptr);
  EXPECT_EQ(sources->NamespaceInfo(Namespace("", "Foo")), nullptr);
  EXPECT_EQ(sources->NamespaceInfo(nullptr), nullptr);
  EXPECT_EQ(sources->CommandInfo(Command("", "foo")), nullptr);
  EXPECT_EQ(sources->CommandInfo(Command("", "foo.bar")), nullptr);
  EXPECT_EQ(sources->CommandInfo(nullptr), nullptr);
}

TEST(CliFingerprint, CombinesTheDigestsOfTheFilesInIdOrder) {
  const std::string foo = CliFile({NamespaceNode("", "foo")});
  const std::string bar = CliFile({CommandNode("foo", "bar")}) + "\n";
  const CliSources sources{{"2", foo}, {"1", bar}};
  const std::string expected = Md5(Md5(bar) + Md5(foo));
  EXPECT_EQ(sources->NamespaceFingerprint(), expected);
  EXPECT_EQ(sources->CommandFingerprint(), expected);
  EXPECT_EQ(sources->SourceFingerprint(boost::none), expected);
  EXPECT_EQ(sources->SourceFingerprint(std::string("1")), Md5(Md5(bar)));
  EXPECT_EQ(sources->SourceFingerprint(std::string("2")), Md5(Md5(foo)));
}

TEST(CliFingerprint, IsTheDigestOfTheHexDigestOfTheFile) {
  const std::string file = R"({"cli": []})";
  const CliSources sources{{"foo", file}};
  EXPECT_EQ(Md5(file), "b09625fbc0bb3879746960f4ad234b8e");
  constexpr char kExpected[] = "493aab51955e8738fbae689712a9fc94";
  EXPECT_EQ(sources->NamespaceFingerprint(), kExpected);
  EXPECT_EQ(sources->CommandFingerprint(), kExpected);
  EXPECT_EQ(sources->SourceFingerprint(std::string("foo")), kExpected);
}

TEST(CliFingerprint, ChangesOnlyWithAReload) {
  const CliSources sources{{"foo", CliFile({})}};
  const std::string before = sources->CommandFingerprint();
  const std::string changed = CliFile({NamespaceNode("", "foo")});
  sources.Write("foo", changed);
  EXPECT_EQ(sources->NamespaceFingerprint(), before);
  EXPECT_EQ(sources->CommandFingerprint(), before);
  EXPECT_EQ(sources->SourceFingerprint(boost::none), before);
  EXPECT_EQ(sources->ReloadSource(std::string("foo")), nullptr);
  EXPECT_EQ(sources->NamespaceFingerprint(), Md5(Md5(changed)));
  EXPECT_EQ(sources->CommandFingerprint(), Md5(Md5(changed)));
  EXPECT_EQ(sources->SourceFingerprint(boost::none), Md5(Md5(changed)));
}

TEST(CliQueries, ReturnRecordsThatDoNotChange) {
  const CliSources sources{{"foo", CliFile({NamespaceNode("", "foo", "old")})}};
  const auto before = sources->NamespaceInfo(Namespace("", "foo"));
  sources.Write("foo", CliFile({NamespaceNode("", "foo", "new"), NamespaceNode("foo", "bar")}));
  EXPECT_EQ(sources->ReloadSource(boost::none), nullptr);
  EXPECT_EQ(CliText(*sources->NamespaceInfo(Namespace("", "foo"))),
            R"(namespace :foo "new" [foo:bar])");
  EXPECT_EQ(sources->DeleteSource("foo"), nullptr);
  EXPECT_EQ(CliText(*before), R"(namespace :foo "old" [])");
}

}  // namespace
}  // namespace Zelk::Testing
