#include <string>

#include <gmock/gmock.h>

#include "tool/diff_run.h"

// Access that is opened, which is shown first.

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;

namespace {

std::string Listing(const std::string& first, const std::string& second) {
  return R"({"authentication": {"component": {"name": "acme", "schemes": {
    "a": {"authenticationScheme": "x.a", "type": "SESSIONLESS"},
    "b": {"authenticationScheme": "x.b", "type": "SESSIONLESS"}},
    "packages": {"acme.one": [)" +
         first + R"(], "acme.two": [)" + second + "]}}}}";
}

/// A file with both parts, each with the scheme of its only package.
std::string Parts(const std::string& component, const std::string& product) {
  const auto part = [](const std::string& name, const std::string& scheme) {
    return R"({"name": ")" + name + R"(", "schemes": {
        "a": {"authenticationScheme": "x.a", "type": "SESSIONLESS"}}, "packages": {")" +
           name + R"(.p": [")" + scheme + "\"]}}";
  };
  return R"({"authentication": {"component": )" + part("acme", component) + R"(, "product": )" +
         part("prod", product) + "}}";
}

/// A scheme is removed from the first list, and the second list is emptied.
ToolRun Compared(const std::string& output, const std::string& audience = "auth") {
  return Versions(Listing(R"("a", "b")", R"("a")"), Listing(R"("a")", ""))
      .Run({"--output", output, "--for", audience});
}

}  // namespace

TEST(OpenedAccess, IsFirstInText) {
  const std::string text = Compared("text").out;
  const auto opened = text.find("\nAccess is opened\n");
  EXPECT_LT(opened, text.find("the list of the package 'acme.two' is empty now"));
  EXPECT_LT(opened, text.find("\nBreaking\n"));
  EXPECT_LT(text.find("\nBreaking\n"), text.find("was removed from the list of"));
  EXPECT_THAT(text, HasSubstr("assumed: inheritance: none, schemes: any\n"));
}

TEST(OpenedAccess, IsFirstInJson) {
  const std::string text = Compared("json").out;
  const auto changes = ParsedJson(text, "changes");
  ASSERT_EQ(changes.Size(), 2U);
  EXPECT_STREQ(changes[0]["id"].GetString(), "authentication-list-removed");
  EXPECT_STREQ(changes[0]["class"].GetString(), "dangerous");
  EXPECT_STREQ(changes[1]["class"].GetString(), "breaking");
  EXPECT_THAT(text, HasSubstr("\"inheritance\":\"none\""));
}

TEST(OpenedAccess, IsFirstInMarkdown) {
  const std::string text = Compared("markdown").out;
  EXPECT_THAT(text, HasSubstr("\n## Access is opened\n\n"
                              "- the list of the package 'acme.two' is empty now "
                              "(`authentication-list-removed`)\n"));
  EXPECT_LT(text.find("## Access is opened"), text.find("## Who may call\n\n### Breaking\n"));
  EXPECT_THAT(text, Not(HasSubstr("### Dangerous")));
}

TEST(OpenedAccess, HasNoHeadingForOtherReaders) {
  EXPECT_THAT(Compared("markdown", "metadata").out, Not(HasSubstr("## Access is opened")));
}

TEST(OpenedAccess, IsFirstInAnnotations) {
  const std::string text = Compared("github").out;
  EXPECT_THAT(text, StartsWith("::warning file=new.json,line=4,col="));
  EXPECT_THAT(text, HasSubstr("title=authentication-list-removed::access is opened: the list of"));
  EXPECT_LT(text.find("access is opened"), text.find("::error"));
}

TEST(PartOfAFile, FailsTheRunIfItDoesNotLoadAnyMore) {
  const std::string whole = Parts("a", "a");
  for (const std::string& broken : {Parts("a", "no"), Parts("no", "a")}) {
    const Versions versions(whole, broken);
    const ToolRun run = versions.Run({"--for", "auth"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.out, HasSubstr(": warning: Authentication unknown schema name: id"));
    EXPECT_THAT(run.out, EndsWith("failed: a part of a file does not load\n"));
    const ToolRun json = versions.Run({"--json", "--for", "auth"});
    EXPECT_EQ(json.status, 1);
    const auto files = ParsedJson(json.out, "files");
    ASSERT_EQ(files.Size(), 1U);
    EXPECT_STREQ(files[0]["state"].GetString(), "warning");
    EXPECT_THAT(json.out, HasSubstr("\"failed\":1"));
    const ToolRun writes = versions.Run({"--for", "auth", "--write-accept", versions.Path("a")});
    EXPECT_EQ(writes.status, 1);
  }
  EXPECT_EQ(Versions(Parts("no", "a"), Parts("a", "no")).Run({"--for", "auth"}).status, 1);
}

TEST(PartOfAFile, FailsNoRunIfItNeverLoaded) {
  const std::string broken = Parts("a", "no");
  EXPECT_EQ(Versions(broken, broken + "\n").Run({"--for", "auth"}).status, 0);
}

TEST(PartOfAFile, IsComparedOnceItLoads) {
  const ToolRun run = Versions(Parts("a", "no"), Parts("a", "a")).Run({"--for", "auth"});
  EXPECT_EQ(run.status, 5);
  EXPECT_THAT(run.out, HasSubstr("the component 'prod' with 1 package has schemes now"));
}
