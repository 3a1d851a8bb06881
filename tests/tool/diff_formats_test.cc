#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "analysis/diff/kind.h"
#include "analysis/lint/rule.h"
#include "tool/diff_run.h"

// What other programs read, and what diff shows of itself.

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::kAfter;
using Zelk::Testing::kBefore;
using Zelk::Testing::kMore;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;

namespace {

rapidjson::Document Parsed(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.data(), text.size());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

/// The name of an operation with what is special in Markdown, in commands of logs and on terminals.
constexpr char kOdd[] = ZELK_EXAMPLE_SERVICE(
    "", "", ZELK_TEST_OPERATION("start") "," ZELK_TEST_OPERATION(R"(*a_``<b>\u001b\n::error::%)"));

}  // namespace

TEST(DiffFormats, JsonHasChangesAndASummary) {
  const ToolRun run = Versions(kBefore, kAfter).Run({"--json"});
  EXPECT_EQ(run.status, 5);
  const auto document = Parsed(run.out);
  EXPECT_EQ(document["version"].GetInt(), 1);
  ASSERT_EQ(document["changes"].Size(), 2U);
  const auto& change = document["changes"][0];
  EXPECT_STREQ(change["id"].GetString(), "operation-removed");
  EXPECT_STREQ(change["class"].GetString(), "breaking");
  EXPECT_STREQ(change["audiences"]["wire"].GetString(), "breaking");
  EXPECT_FALSE(change["audiences"].HasMember("cli"));
  EXPECT_THAT(change["element"].GetString(), EndsWith("/operation:stop"));
  EXPECT_STREQ(change["old_place"]["file"].GetString(), "old.json");
  EXPECT_EQ(change["old_place"]["line"].GetInt(), 10);
  EXPECT_EQ(change["old_place"]["column"].GetInt(), 12);
  EXPECT_THAT(change["old_place"]["pointer"].GetString(), EndsWith("/operations/1/name"));
  EXPECT_EQ(change["fingerprint"].GetStringLength(), 16U);
  for (const char* key :
       {"direction", "old", "new", "new_place", "assumption", "witness", "accepted"}) {
    EXPECT_TRUE(change[key].IsNull()) << key;
  }
}

TEST(DiffFormats, JsonHasWhatTheChangesDependOn) {
  const auto document = Parsed(Versions(kBefore, kAfter).Run({"--json"}).out);
  EXPECT_STREQ(document["assumptions"]["parameters"].GetString(), "named");
  EXPECT_TRUE(document["files"].Empty());
  EXPECT_TRUE(document["left_out"].Empty());
  EXPECT_TRUE(document["unused"].Empty());
  const auto& summary = document["summary"];
  for (const char* key : {"old_files", "new_files", "breaking", "compatible"}) {
    EXPECT_EQ(summary[key].GetInt(), 1) << key;
  }
  for (const char* key : {"failed", "dangerous", "documentation", "unlisted", "accepted"}) {
    EXPECT_EQ(summary[key].GetInt(), 0) << key;
  }
  EXPECT_TRUE(summary["fingerprints_differ"].GetBool());
  EXPECT_STREQ(summary["bump"].GetString(), "major");
  const auto broken = Parsed(Versions(kBefore, "{").Run({"--json"}).out);
  EXPECT_STREQ(broken["files"][0]["file"].GetString(), "new.json");
  EXPECT_STREQ(broken["left_out"][0].GetString(), "old.json");
}

TEST(DiffFormats, MarkdownIsGroupedByAudience) {
  const ToolRun run = Versions(kBefore, kAfter).Run({"--output", "markdown"});
  EXPECT_EQ(run.status, 5);
  EXPECT_EQ(run.out,
            "# Changes\n\nFrom `old.json` to `new.json`.\n"
            "\nAssumed: parameters: named, unknown\\_fields: ignored, enumerations: closed, "
            "enumeration\\_form: ordinal, schemes: any, inheritance: none.\n"
            "\n## Programs that call, or are called\n"
            "\n### Breaking\n\n"
            "- the operation 'acme.power.switch.stop' was removed (`operation-removed`)\n"
            "  - possibly renamed to 'acme.power.switch.pause'\n"
            "\n### Compatible\n\n"
            "- the operation 'acme.power.switch.pause' was added (`operation-added`)\n"
            "  - possibly renamed from 'acme.power.switch.stop'\n"
            "\n- 2 changes: 1 breaking, 1 compatible\n"
            "- failed: found a change at or above 'breaking'\n");
}

TEST(DiffFormats, NamesCannotChangeWhatIsAroundThem) {
  const Versions versions(kBefore, kOdd);
  EXPECT_THAT(versions.Run({"--output", "markdown"}).out,
              HasSubstr(R"(\*a\_\`\`\<b\>\\x1b\\x0a::error::%)"));
  EXPECT_THAT(versions.Run().out, HasSubstr(R"(*a_``<b>\x1b\x0a::error::%)"));
  EXPECT_THAT(
      versions.Run({"--output", "github"}).out,
      HasSubstr("::notice file=new.json,line=10,col=12,title=operation-added::the operation "
                "'acme.power.switch.*a_``<b>\\x1b%0A::error::%25' was added (possibly renamed from "
                "'acme.power.switch.stop')\n"));
}

TEST(DiffFormats, NamesNotifyNobody) {
  const Versions versions(
      kBefore, ZELK_EXAMPLE_SERVICE(
                   "", "", ZELK_TEST_OPERATION("start") "," ZELK_TEST_OPERATION("a @team/#1 b")));
  EXPECT_THAT(versions.Run({"--output", "markdown"}).out,
              HasSubstr("- the operation 'acme.power.switch.a `@team/#1` b' was added "));
}

TEST(DiffFormats, MarkdownHasOpenedAccessFirst) {
  const Versions versions("", "");
  for (const char* id : {"authentication-list-removed", "parameter-order-changed"}) {
    const auto& example = Zelk::Analysis::Diff::FindKind(id)->example;
    const std::string name = std::string(id) + ".json";
    versions.Folder("old", {{name, std::string(example.old_files[0])}});
    versions.Folder("new", {{name, std::string(example.new_files[0])}});
  }
  const ToolRun run =
      RunTool({"diff", versions.Path("old"), versions.Path("new"), "--output", "markdown"});
  const std::size_t opened = run.out.find("\n## Access is opened\n\n- ");
  EXPECT_LT(opened, run.out.find("\n### Breaking\n"));
  EXPECT_THAT(run.out, HasSubstr("  - Assumed: `parameters: named`\n"));
}

TEST(DiffFormats, GithubHasLinesForWhatItDoesNotShow) {
  std::string operations = ZELK_TEST_OPERATION("start");
  for (const char name : std::string("abcdefghijkl")) {
    std::string operation = ZELK_TEST_OPERATION("NAME");
    operations += "," + operation.replace(operation.find("NAME"), 4, 1, name);
  }
  std::string many = ZELK_EXAMPLE_SERVICE("", "", "MANY");
  many.replace(many.find("MANY"), 4, operations);
  const ToolRun run = Versions(many, kBefore).Run({"--output", "github"});
  EXPECT_THAT(run.out, HasSubstr("\nerror: old.json: the operation 'acme.power.switch.l' was "
                                 "removed"));
  EXPECT_THAT(run.out, HasSubstr(" [operation-removed]\n"));
}

TEST(DiffFormats, GithubShowsWhatIsGoneAtItsFile) {
  EXPECT_EQ(
      Versions(kBefore, kAfter).Run({"--output", "github"}).out,
      "::error file=old.json,title=operation-removed::the operation "
      "'acme.power.switch.stop' was removed (possibly renamed to 'acme.power.switch.pause')\n"
      "::notice file=new.json,line=10,col=12,title=operation-added::the operation "
      "'acme.power.switch.pause' was added (possibly renamed from 'acme.power.switch.stop')\n");
}

TEST(DiffFormats, EveryOutputShowsEveryChange) {
  for (const auto* kind : Zelk::Analysis::Diff::Kinds()) {
    // Nobody is concerned by other formatting.
    if (kind->id == std::string("formatting-only")) continue;
    const TempFolder folder;
    std::vector<std::string> words{"diff"};
    for (const auto* version : {&kind->example.old_files, &kind->example.new_files}) {
      const std::string path = folder.Path(words.size() == 1 ? "old" : "new");
      std::filesystem::create_directory(path);
      // Some versions have no file of their own.
      std::ofstream(path + "/none.json") << R"({"cli": []})";
      for (std::size_t i = 0; i < version->size(); ++i) {
        if (version->at(i).empty()) continue;
        std::ofstream(path + "/" + std::to_string(i) + ".json") << version->at(i);
      }
      words.push_back(path);
    }
    for (const char* output : {"text", "json", "markdown", "github"}) {
      words.resize(3);
      words.insert(words.end(), {"--output", output, "--fail-on", "never"});
      const ToolRun run = RunTool(words);
      const bool fails_to_load = kind->about == std::string("source");
      EXPECT_EQ(run.status, fails_to_load ? 1 : 0) << kind->id << run.err;
      EXPECT_THAT(run.out, HasSubstr(kind->id)) << output;
    }
  }
}

TEST(DiffFormats, ListOfChangesHasAllOfThem) {
  const auto kinds = ParsedJson(RunLine("diff --list-changes --json").out, "kinds");
  EXPECT_EQ(kinds.Size(), Zelk::Analysis::Diff::Kinds().size());
  const std::string table = RunLine("diff --list-changes").out;
  for (const auto& kind : kinds.GetArray()) {
    EXPECT_THAT(table, HasSubstr(std::string(kind["id"].GetString()) + "\t"));
    EXPECT_FALSE(kind["example"]["old_files"].Empty() && kind["example"]["new_files"].Empty());
  }
}

TEST(DiffFormats, ExplainShowsEachChangeWithAnExample) {
  for (const auto* kind : Zelk::Analysis::Diff::Kinds()) {
    const ToolRun run = RunTool({"explain", kind->id});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out,
                AllOf(StartsWith(kind->id + std::string("\n")), HasSubstr("\nMeans:\n"),
                      HasSubstr("\n    zelk-metadata diff OLD NEW\n"), HasSubstr("\nAdvice:\n")));
    EXPECT_EQ(Zelk::Analysis::Lint::FindRule(kind->id), nullptr) << kind->id;
  }
  EXPECT_EQ(ParsedJson(RunLine("explain operation-removed --json").out, "kinds").Size(), 1U);
  EXPECT_THAT(RunLine("explain operation-removde").err,
              StartsWith("zelk-metadata: unknown message, rule or change 'operation-removde'; did "
                         "you mean operation-removed"));
}

TEST(DiffFormats, ChangesAreCompleted) {
  EXPECT_THAT(RunTool({"complete", "--", "explain", "operation-rem"}).out,
              HasSubstr("operation-removed"));
  EXPECT_THAT(RunTool({"complete", "--", "diff", "a", "b", "--for", "w"}).out, HasSubstr("wire"));
}
