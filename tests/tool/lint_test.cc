#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "analysis/lint/rule.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::FileText;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

// An error, a warning and a note.
constexpr char kThree[] = R"({"cli": [
{"type": "namespace", "path": "", "name": "acme", "description": "Machines.", "owner": 1},
{"type": "command", "path": "acme", "name": "start", "description": "",
"node_metadata": {"service_id": "acme.power", "operation_id": "start", "formatter": "tabel"}}]})";

class Lint : public testing::Test {
 protected:
  std::string Write(const std::string& name, const std::string& text) {
    return folder_.Write(name, text);
  }

  /// What lint says about a file with the text.
  ToolRun Run(const std::string& text, std::vector<std::string> more = {}) {
    more.insert(more.begin(), {"lint", Write("a.json", text)});
    ToolRun run = RunTool(more);
    // The folder is another one each time.
    const std::string path = folder_.Path("");
    for (std::size_t at = run.out.find(path); at != std::string::npos; at = run.out.find(path)) {
      run.out.erase(at, path.size());
    }
    return run;
  }

  TempFolder folder_;
};

rapidjson::Document Parsed(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.data(), text.size());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

/// The members of the entries of a baseline, in whatever order the entries are.
std::vector<std::string> SortedMembers(const std::string& baseline) {
  std::vector<std::string> members;
  std::istringstream lines(baseline);
  for (std::string line; std::getline(lines, line);)
    members.push_back(line.substr(0, line.find(',')));
  std::sort(members.begin(), members.end());
  return members;
}

std::string SummaryOf(const ToolRun& run) {
  return run.out.substr(run.out.rfind('\n', run.out.rfind("1 file")) + 1);
}

}  // namespace

TEST_F(Lint, TextShowsPlaceLineHintAndSummary) {
  const ToolRun run = Run(kThree);
  EXPECT_EQ(run.status, 5);
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(run.out, HasSubstr("a.json:4:85: error: the formatter 'tabel' is unknown "
                                 "[unknown-enumerator]\n  4 | "));
  EXPECT_THAT(run.out, HasSubstr("\n  did you mean 'TABLE'?\n"));
  EXPECT_THAT(run.out, HasSubstr("\n1 file: 1 error, 1 warning, 1 note\n"
                                 "7 rules need a file of the domain metamodel\n"
                                 "failed: found something at or above 'error'\n"));
}

TEST_F(Lint, TextFitsTheTerminal) {
  const std::string path = Write("a.json", kThree);
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Zelk::Tool::Render::Terminal terminal;
  for (const std::size_t width : {60U, 40U}) {
    out.str("");
    terminal.width = width;
    Zelk::Tool::Run({"lint", path}, {in, out, err, terminal});
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) {
      // A word that is wider, such as the name of the file, has a line of its own.
      EXPECT_TRUE(line.size() <= width || line.find(' ') == std::string::npos) << line;
    }
  }
}

TEST_F(Lint, FailOnDecidesTheStatus) {
  const std::vector<std::string> no_errors{"--except", "unknown-enumerator"};
  EXPECT_EQ(Run(kThree, no_errors).status, 0);
  const auto status = [&](const char* severity) {
    return Run(kThree, {"--except", "unknown-enumerator", "--fail-on", severity}).status;
  };
  EXPECT_EQ(status("warning"), 5);
  EXPECT_EQ(status("note"), 5);
  EXPECT_EQ(status("error"), 0);
  EXPECT_EQ(Run(kThree, {"--fail-on", "never"}).status, 0);
}

TEST_F(Lint, RulesAreChosenByGroupAndId) {
  EXPECT_THAT(SummaryOf(Run(kThree, {"--only", "documentation"})), HasSubstr(": 1 warning\n"));
  EXPECT_THAT(SummaryOf(Run(kThree, {"--rule", "unknown-key"})), HasSubstr(": 1 note\n"));
  EXPECT_THAT(
      SummaryOf(Run(R"({"cli": []})", {"--only", "loader", "--rule", "noncanonical-spelling"})),
      HasSubstr(": nothing found\npassed\n"));
}

TEST_F(Lint, UnknownWordsAreWrongUsage) {
  EXPECT_EQ(RunTool({"lint", "x", "--only", "loder"}).err,
            "zelk-metadata: unknown group 'loder'; did you mean loader?\n");
  EXPECT_EQ(RunTool({"lint", "x", "--rule", "unknown-kye"}).status, 2);
  EXPECT_EQ(RunTool({"lint", "x", "--except", "nope"}).status, 2);
  EXPECT_EQ(RunTool({"lint", "x", "--fail-on", "always"}).err,
            "zelk-metadata: unknown severity 'always'; it is one of error, warning, note, never\n");
  EXPECT_EQ(RunTool({"lint"}).status, 2);
}

TEST_F(Lint, AFileThatDoesNotLoadFailsFirst) {
  const ToolRun run = Run(R"({"cli": 1})", {"--source", Write("b.json", kThree)});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("[zelk.metadata.cli.json.invalid.field"));
  EXPECT_THAT(run.out, HasSubstr("failed: a file does not load\n"));
  EXPECT_EQ(Run("[]", {"--source", Write("b.json", "{")}).status, 1);
  EXPECT_THAT(Run("[]", {"--source", Write("b.json", "{")}).out,
              HasSubstr("failed: 2 files do not load\n"));
}

TEST_F(Lint, WhatCannotBeReadFails) {
  const ToolRun run = RunTool({"lint", folder_.Path("nope")});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("No such file or directory"));
  EXPECT_THAT(run.out, HasSubstr("0 files: nothing found\nfailed: a source cannot be read\n"));
}

TEST_F(Lint, StandardInputAndAFileGivenTwiceAreReadOnce) {
  EXPECT_THAT(RunTool({"lint", "-"}, kThree).out, HasSubstr("1 file: 1 error"));
  const std::string path = Write("a.json", kThree);
  EXPECT_THAT(RunTool({"lint", path, path}).out, HasSubstr("1 file: 1 error"));
}

TEST_F(Lint, JsonHasFindingsAndSummary) {
  const ToolRun run = Run(kThree, {"--json"});
  EXPECT_EQ(run.status, 5);
  const auto document = Parsed(run.out);
  EXPECT_EQ(document["version"].GetInt(), 1);
  ASSERT_EQ(document["findings"].Size(), 3U);
  const auto& finding = document["findings"][2];
  EXPECT_STREQ(finding["rule"].GetString(), "unknown-enumerator");
  EXPECT_STREQ(finding["severity"].GetString(), "error");
  EXPECT_EQ(finding["line"].GetInt(), 4);
  EXPECT_STREQ(finding["pointer"].GetString(), "/cli/1/node_metadata/formatter");
  EXPECT_STREQ(finding["element"].GetString(), "cli/command:acme.start");
  EXPECT_STREQ(finding["hint"].GetString(), "did you mean 'TABLE'?");
  EXPECT_STREQ(finding["fingerprint"].GetString(), "5078d722608f247f");
  EXPECT_EQ(document["summary"]["errors"].GetInt(), 1);
  const auto broken = Parsed(Run("{", {"--json"}).out);
  EXPECT_TRUE(broken["findings"][0]["fingerprint"].IsNull());
}

TEST_F(Lint, GithubShowsErrorsFirstAndCountsTheRest) {
  EXPECT_THAT(Run(kThree, {"--output", "github"}).out,
              testing::StartsWith("::error file=a.json,line=4,col=85,title=unknown-enumerator::"));
  std::string nodes;
  for (int i = 0; i < 12; ++i) {
    nodes += std::string(i == 0 ? "" : ",") + R"({"type": "namespace", "path": "", "name": "n)" +
             std::to_string(i) + R"(", "description": "x", "y": 1})";
  }
  EXPECT_THAT(Run("{\"cli\": [" + nodes + "]}", {"--output", "github"}).out,
              HasSubstr("::notice title=lint::3 more are in the log of this step\n"));
  Write("::warning::x.json", "{\"cli\": [" + nodes + "]}");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path(""));
  const std::string named = RunTool({"lint", "::warning::x.json", "--output", "github"}).out;
  std::filesystem::current_path(before);
  EXPECT_THAT(named,
              AllOf(HasSubstr("\nnote: ::warning::x.json:1:"), Not(HasSubstr("\n::warning"))));
}

TEST_F(Lint, SarifHasRulesResultsAndSuppressions) {
  const std::string text = R"({"$lint": {"ignore": ["unknown-key"]}, "cli": [], "x": 1})";
  const auto document = Parsed(Run(text, {"--output", "sarif"}).out);
  EXPECT_STREQ(document["version"].GetString(), "2.1.0");
  const auto& run = document["runs"][0];
  EXPECT_EQ(run["tool"]["driver"]["rules"].Size(), Zelk::Analysis::Lint::Rules().size());
  const auto& result = run["results"][0];
  EXPECT_STREQ(result["ruleId"].GetString(), "unknown-key");
  EXPECT_STREQ(result["level"].GetString(), "note");
  EXPECT_STREQ(result["suppressions"][0]["kind"].GetString(), "inSource");
  const auto& place = result["locations"][0]["physicalLocation"];
  EXPECT_EQ(place["region"]["startColumn"].GetInt(), 51);
  EXPECT_STREQ(result["message"]["text"].GetString(), "the key 'x' is not read");
}

TEST_F(Lint, SarifCountsCharacters) {
  const auto document =
      Parsed(Run("{\"cli\": [], \"\xc3\xa4\": 1, \"b\": 2}", {"--output", "sarif"}).out);
  const auto& results = document["runs"][0]["results"];
  const auto column = [&](unsigned i) {
    return results[i]["locations"][0]["physicalLocation"]["region"]["startColumn"].GetInt();
  };
  EXPECT_EQ(column(0), 13);
  EXPECT_EQ(column(1), 21);
}

TEST_F(Lint, JunitHasASuiteForEachFile) {
  EXPECT_EQ(Run(R"({"cli": []})", {"--output", "junit"}).out,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<testsuites name=\"lint\" tests=\"0\" failures=\"0\">\n"
            "  <testsuite name=\"a.json\" tests=\"0\" failures=\"0\" errors=\"0\">\n"
            "  </testsuite>\n"
            "</testsuites>\n");
  const ToolRun run = Run(R"({"cli": [], "<\"&>": 1})", {"--output", "junit", "--fail-on", "note"});
  EXPECT_THAT(run.out, HasSubstr("message=\"the key '&lt;&quot;&amp;&gt;' is not read\"/>"));
  EXPECT_THAT(Run(kThree, {"--output", "junit"}).out,
              HasSubstr("<system-out>note: the key 'owner' is not read</system-out>"));
  const ToolRun missing = RunTool({"lint", folder_.Path("no"), "--output", "junit"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.out, AllOf(HasSubstr("<testsuites name=\"lint\" tests=\"1\" failures=\"1\">"),
                                 HasSubstr("message=\"No such file or directory\"/>")));
}

TEST_F(Lint, ABaselineHidesWhatItLists) {
  const std::string baseline = folder_.Path("baseline.json");
  EXPECT_EQ(Run(kThree, {"--write-baseline", baseline}).status, 0);
  const ToolRun run = Run(kThree, {"--baseline", baseline});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "1 file: nothing found\n3 suppressed (3 by the baseline)\n"
            "7 rules need a file of the domain metamodel\npassed\n");
  EXPECT_THAT(Run(kThree, {"--baseline", baseline, "--show-suppressed"}).out,
              HasSubstr(": suppressed error: "));
  const ToolRun fixed = Run(R"({"cli": []})", {"--baseline", baseline, "--fail-on", "warning"});
  EXPECT_EQ(fixed.status, 0);
  EXPECT_THAT(fixed.out, HasSubstr("warning: an entry for 'unknown-key' hides nothing"));
  EXPECT_EQ(Run(kThree, {"--write-baseline", folder_.Path("no/such/folder")}).status, 4);
  const std::string text = FileText(baseline);
  const ToolRun broken = Run("{", {"--write-baseline", baseline});
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.err, AllOf(HasSubstr("a.json:1:2: "),
                                HasSubstr("baseline.json: not written, since not all files could "
                                          "be read\n")));
  EXPECT_EQ(FileText(baseline), text);
}

TEST_F(Lint, AnEntryOfABaselineHasNoPlace) {
  const std::string baseline = folder_.Path("baseline.json");
  Run(kThree, {"--write-baseline", baseline});
  const auto document = Parsed(Run(R"({"cli": []})", {"--baseline", baseline, "--json"}).out);
  const auto& finding = document["findings"][0];
  EXPECT_STREQ(finding["rule"].GetString(), "unused-suppression");
  EXPECT_TRUE(finding["line"].IsNull());
  EXPECT_TRUE(finding["column"].IsNull());
}

TEST_F(Lint, AMarkCoversTheObjectThatItIsIn) {
  const ToolRun run = Run(R"({"cli": [
{"$lint": {"ignore": ["unknown-key"]},
"type": "namespace", "path": "", "name": "a", "description": "A.", "x": 1},
{"$lint": {"ignore": ["unknown-key"]},
"type": "namespace", "path": "", "name": "b", "description": "B."},
{"type": "namespace", "path": "", "name": "c", "description": "C.", "x": 1}]})");
  EXPECT_THAT(run.out, HasSubstr("a.json:4:2: warning: '$lint' has no effect: the rule "
                                 "'unknown-key' finds nothing here"));
  EXPECT_THAT(run.out, HasSubstr("a.json:6:69: note: the key 'x' is not read"));
  EXPECT_EQ(SummaryOf(run),
            "1 file: 1 warning, 1 note\n1 suppressed (1 by $lint)\n"
            "7 rules need a file of the domain metamodel\npassed\n");
}

TEST_F(Lint, AFileWithoutARootKeyFails) {
  const ToolRun run = Run(R"({"openapi": "3"})");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("metamodel, authentication"));
}

TEST_F(Lint, ABaselineThatIsWrittenAnewKeepsWhatIsStillFound) {
  const std::string baseline = folder_.Path("baseline.json");
  Run(kThree, {"--write-baseline", baseline});
  const std::string text = FileText(baseline);
  EXPECT_EQ(Run(kThree, {"--baseline", baseline, "--write-baseline", baseline}).status, 0);
  EXPECT_EQ(FileText(baseline), text);
  EXPECT_THAT(text, HasSubstr("unknown-enumerator"));
  std::string kept = text;
  const std::string end = ",\n      \"reason\": \"agreed\",\n      \"until\": \"2999-12-31\"";
  kept.insert(kept.find("\n    }"), end);
  Write("baseline.json", kept);
  EXPECT_EQ(Run(kThree, {"--baseline", baseline, "--write-baseline", baseline}).status, 0);
  EXPECT_EQ(FileText(baseline), kept);
}

TEST_F(Lint, ABaselineThatIsReplacedKeepsReasons) {
  const std::string baseline = folder_.Path("baseline.json");
  EXPECT_THAT(Run(kThree, {"--write-baseline", baseline}).err,
              HasSubstr("baseline.json: 3 entries written\n"));
  std::string kept = FileText(baseline);
  kept.insert(kept.find("\n    }"), ",\n      \"reason\": \"agreed\"");
  Write("baseline.json", kept);
  EXPECT_EQ(Run(kThree, {"--write-baseline", baseline}).status, 0);
  EXPECT_EQ(FileText(baseline), kept);
  kept.insert(kept.find("\n    }"), ",\n      \"until\": \"2001-01-01\",\n      \"$note\": {}");
  Write("baseline.json", kept);
  EXPECT_THAT(
      Run(kThree, {"--write-baseline", baseline}).err,
      HasSubstr("3 entries written; 1 of them has ended and accepts nothing; change 'until' "
                "to renew it\n"));
  EXPECT_EQ(FileText(baseline), kept);
}

TEST_F(Lint, ABaselineThatIsReplacedKeepsEntriesOfRulesThatDidNotRun) {
  const std::string baseline = folder_.Path("baseline.json");
  Run(kThree, {"--write-baseline", baseline});
  const std::vector<std::string> all = SortedMembers(FileText(baseline));
  EXPECT_THAT(Run(kThree, {"--rule", "unknown-key", "--write-baseline", baseline}).err,
              HasSubstr("baseline.json: 3 entries written\n"));
  EXPECT_EQ(SortedMembers(FileText(baseline)), all);
  // An entry of two lists is written once.
  const std::string other = Write("other.json", FileText(baseline));
  EXPECT_THAT(
      Run(kThree, {"--rule", "unknown-key", "--baseline", other, "--write-baseline", baseline}).err,
      HasSubstr("baseline.json: 3 entries written\n"));
  EXPECT_EQ(SortedMembers(FileText(baseline)), all);
  EXPECT_THAT(Run(R"({"cli": []})", {"--rule", "unknown-key", "--write-baseline", baseline}).err,
              HasSubstr("2 entries written; 1 earlier entry is left out\n"));
}

TEST_F(Lint, OnlyABaselineIsReplaced) {
  const ToolRun run = Run(kThree, {"--write-baseline", folder_.Path("a.json")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("a.json:1:1: this is not a baseline: it has no 'findings'\n"));
  EXPECT_EQ(FileText(folder_.Path("a.json")), kThree);
  for (const char* option : {"--baseline", "--write-baseline"}) {
    const ToolRun input = Run(kThree, {option, "-"});
    EXPECT_EQ(input.status, 2);
    EXPECT_EQ(input.err, "zelk-metadata: --baseline and --write-baseline need a file, not -\n");
  }
}

TEST_F(Lint, NothingIsPassedIfNoRuleIsLeft) {
  const ToolRun run = Run(kThree, {"--rule", "unknown-key", "--except", "unknown-key"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: no rule is left to run\n");
  for (const char* rule : {"duplicate-definition", "unknown-command-target"}) {
    const ToolRun skipped = Run(kThree, {"--rule", rule});
    EXPECT_EQ(skipped.status, 2);
    EXPECT_EQ(skipped.err, "zelk-metadata: the rules need files of other domains, so none ran\n");
  }
}

TEST_F(Lint, AFileThatIsNotMetadataHasNoRule) {
  EXPECT_THAT(Run("{}").out, HasSubstr("authentication or cli.\n  1 | {}\n"));
  EXPECT_TRUE(Parsed(Run("{}", {"--json"}).out)["findings"][0]["rule"].IsNull());
  const auto log = Parsed(Run("{}", {"--output", "sarif"}).out);
  EXPECT_FALSE(log["runs"][0]["results"][0].HasMember("ruleId"));
}

TEST_F(Lint, AnEndThatIsNotADateIsReported) {
  const ToolRun run =
      Run(R"({"$lint": {"ignore": ["unknown-key"], "until": "next year"}, "cli": [], "x": 1})");
  EXPECT_THAT(run.out, HasSubstr("its 'until' is not a date such as 2030-01-31 "));
  EXPECT_THAT(run.out, HasSubstr("1 file: 1 warning, 1 note\n"));
}

TEST_F(Lint, AMarkEndsAfterItsLastDay) {
  const auto until = [this](const std::string& day) {
    return Run(R"({"$lint": {"ignore": ["unknown-key"], "until": ")" + day +
               R"("}, "cli": [], "x": 1})")
        .out;
  };
  EXPECT_THAT(until("2001-01-01"), HasSubstr("'$lint' has no effect: its last day has passed "));
  EXPECT_THAT(until("2999-01-01"), HasSubstr("\n1 suppressed (1 by $lint)\n"));
}

TEST_F(Lint, TheConfigurationChangesSeveritiesAndIgnores) {
  const std::string config = Write("c.txt", R"({"lint": {
"rules": {"unknown-key": "off", "unknown-enumerator": "note"}, "external": ["x.*"],
"reserved_options": ["v"], "needs_reasons": true,
"ignore": [{"rule": "missing-documentation", "element": "cli/command:*"},
           {"rule": "duplicate-command", "reason": "old", "until": "2000-01-01"},
           {"rule": "duplicate-key", "reason": "old"}]}})");
  const ToolRun run = Run(kThree, {"--config", config});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("1 suppressed (1 by the configuration)\n"));
  EXPECT_THAT(run.out, HasSubstr("'missing-documentation' at 'cli/command:*' has no reason"));
  EXPECT_THAT(run.out, HasSubstr("'duplicate-command' at '*' has ended"));
  EXPECT_THAT(run.out, HasSubstr("'duplicate-key' at '*' hides nothing"));
  EXPECT_THAT(run.out, HasSubstr("1 file: 3 warnings, 1 note\n"));
}

TEST_F(Lint, MistakesOfTheConfigurationAreWrongUsage) {
  const auto complaint = [&](const std::string& text) {
    const ToolRun run = Run(kThree, {"--config", Write("c.txt", text)});
    EXPECT_EQ(run.status, 2) << text;
    return run.err;
  };
  EXPECT_THAT(complaint(R"({"lint": {"rules": {"unknown-kye": "off"}}})"),
              HasSubstr("c.txt:1:36: unknown rule 'unknown-kye'; did you mean unknown-key?"));
  EXPECT_THAT(complaint(R"({"lint": {"rules": {"unknown-key": "bad"}}})"),
              HasSubstr("a severity is error, warning, note or off"));
  EXPECT_THAT(complaint(R"({"lint": {"external": "x"}})"), HasSubstr("must be an array"));
  EXPECT_THAT(complaint(R"({"lint": {"external": [1]}})"), HasSubstr("must hold strings"));
  EXPECT_THAT(complaint(R"({"lint": {"needs_reasons": null}})"),
              HasSubstr("'needs_reasons' must be true or false"));
  EXPECT_THAT(complaint(R"({"lint": {"ignore": [1]}})"), HasSubstr("an object is needed here"));
  EXPECT_THAT(complaint("[]"), HasSubstr("c.txt:1:1: an object is needed here"));
  EXPECT_THAT(complaint(R"({"lnit": {}})"), HasSubstr("unknown key 'lnit'; did you mean lint?"));
  EXPECT_THAT(complaint(R"({"lint": {"rules": {"unknown-key": "off", "unknown-key": "note"}}})"),
              HasSubstr("c.txt:1:58: the key 'unknown-key' is repeated"));
  EXPECT_THAT(complaint(R"({"lint": {"rulez": {}}})"),
              HasSubstr("unknown key 'rulez'; did you mean rules?"));
  EXPECT_THAT(complaint(R"({"lint": {"needs_reasons": 1}})"), HasSubstr("must be true or false"));
  EXPECT_THAT(complaint(R"({"lint": {"ignore": [{"rule": "unknown-key", "until": "2030-1-1"}]}})"),
              HasSubstr("'until' must be a date such as 2030-01-31"));
}

TEST_F(Lint, TheConfigurationIsReadAsItsSchemaSays) {
  const auto cases = Parsed(FileText(ZELK_SOURCE_DIR "/tests/data/schema/project_cases.json"));
  ASSERT_GT(cases.Size(), 20U);
  for (const auto& row : cases.GetArray()) {
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    row["project"].Accept(writer);
    const ToolRun run = Run(R"({"cli": []})", {"--config", Write("c.txt", text.GetString())});
    const bool is_read = row["valid"].GetBool() || row.HasMember("is_read");
    EXPECT_EQ(run.status, is_read ? 0 : 2) << text.GetString() << '\n' << run.err;
  }
}

TEST_F(Lint, ABrokenBaselineIsWrongUsage) {
  const std::string path =
      Write("b.txt", R"({"findings": [{"rule": "x", "fingerprint": "g"}, 1]})");
  const ToolRun run = Run(kThree, {"--baseline", path});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("the fingerprint must be 16 hexadecimal digits"));
  EXPECT_EQ(Run(kThree, {"--baseline", folder_.Path("nope")}).status, 2);
  EXPECT_THAT(Run(kThree, {"--baseline", Write("b.txt", kThree)}).err,
              HasSubstr("this is not a baseline: it has no 'findings'"));
}

TEST_F(Lint, RulesAreListed) {
  const ToolRun run = RunTool({"lint", "--list-rules"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("noncanonical-spelling\tloader\toff\tfile\t"));
  const auto rules = Parsed(RunTool({"lint", "--list-rules", "--json"}).out);
  EXPECT_EQ(rules["rules"].Size(), Zelk::Analysis::Lint::Rules().size());
  const ToolRun sarif = RunTool({"lint", "--list-rules", "--output", "sarif"});
  EXPECT_EQ(sarif.status, 2);
  EXPECT_EQ(sarif.err, "zelk-metadata: --list-rules prints text or JSON, not sarif\n");
}

TEST_F(Lint, EachRuleIsExplainedWithItsExample) {
  for (const auto* rule : Zelk::Analysis::Lint::Rules()) {
    const ToolRun run = RunTool({"explain", rule->id});
    EXPECT_EQ(run.status, 0) << rule->id;
    EXPECT_THAT(run.out, HasSubstr(std::string("\n    zelk-metadata lint --rule ") + rule->id));
  }
  const auto document = Parsed(RunTool({"explain", "unknown-key", "--json"}).out);
  EXPECT_STREQ(document["rules"][0]["id"].GetString(), "unknown-key");
}

TEST_F(Lint, TheShippedMetadataHasNotesOnly) {
  const ToolRun run = RunTool({"lint", ZELK_SOURCE_DIR "/metadata", "--fail-on", "warning"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, Not(HasSubstr(": warning: ")));
}
