#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Package;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

TEST(Search, ShowsNamesBeforeDocumentation) {
  const ToolRun run = RunOnThree("search MACHINES --output plain");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("metamodel:service\tcom.acme.inventory.machines\t"));
  const std::size_t name = run.out.find("cli:namespace\tacme.machines\t");
  const std::size_t text = run.out.find("cli:command\tacme.machines.list\tList machines.\n");
  EXPECT_LT(name, text);
  EXPECT_NE(text, std::string::npos);
}

TEST(Search, ShowsTheLineThatContainsTheText) {
  const ToolRun run = RunOnThree("search disks");
  EXPECT_THAT(run.out, HasSubstr("metamodel:operation\tcom.acme.inventory.machines remove\t"
                                 "\\x09Its disks go with it.\n"));
}

TEST(Search, DottedTextIsSearchedInFullNames) {
  EXPECT_THAT(RunOnThree("search machines.list --json").out, HasSubstr("\"matched\":\"name\""));
  EXPECT_THAT(RunOnThree("search machines.list").out,
              HasSubstr("cli:command\tacme.machines.list\tList machines.\n"));
}

TEST(Search, ReportsThatNothingWasFound) {
  const ToolRun run = RunOnThree("search gizmo");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelk-metadata: no name or documentation contains 'gizmo'\n");
  EXPECT_EQ(RunOnThree("search gizmo --json").out, "{\"version\":1,\"matches\":[],\"total\":0}\n");
}

TEST(Search, KindLimitsTheHits) {
  EXPECT_EQ(RunOnThree("search machine --kind services").out.find("metamodel:service\t"), 0U);
  const std::string both = RunOnThree("search machine --kind cli:namespace --kind field").out;
  EXPECT_THAT(both, HasSubstr("cli:namespace\tacme.machines\t"));
  EXPECT_THAT(both, HasSubstr("metamodel:field\tcom.acme.inventory.machine id\t"));
  EXPECT_THAT(both, Not(HasSubstr(":service\t")));
  EXPECT_EQ(RunOnThree("search machine --kind cli:service").status, 3);
}

TEST(Search, UnknownKindIsNotFound) {
  const ToolRun run = RunOnThree("search machine --kind feild");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err,
              StartsWith("zelk-metadata: unknown kind 'feild'; the kinds are component, "));
  EXPECT_THAT(run.err, HasSubstr("; did you mean field?\n"));
}

TEST(Search, LimitShowsTheFirstHitsAndSaysSo) {
  const ToolRun all = RunOnThree("search machine");
  EXPECT_EQ(all.err, "");
  const auto count = std::count(all.out.begin(), all.out.end(), '\n');
  const ToolRun first = RunOnThree("search machine --limit 2");
  EXPECT_EQ(std::count(first.out.begin(), first.out.end(), '\n'), 2);
  EXPECT_THAT(all.out, StartsWith(first.out));
  EXPECT_EQ(first.err, "zelk-metadata: only 2 of " + std::to_string(count) + " hits are shown\n");
  EXPECT_EQ(first.status, 0);
  const std::string json = RunOnThree("search machine --limit 2 --json").out;
  EXPECT_EQ(ParsedJson(json, "matches").Size(), 2U);
  EXPECT_THAT(json, HasSubstr("],\"total\":" + std::to_string(count) + "}\n"));
  const ToolRun enough = RunOnThree("search machine --limit " + std::to_string(count));
  EXPECT_EQ(enough.out, all.out);
  EXPECT_EQ(enough.err, "");
}

TEST(Search, RegularExpressionIsSearchedAsTextIs) {
  EXPECT_EQ(RunOnThree("search ^LIST$ --regex --kind operation").out,
            "metamodel:operation\tcom.acme.inventory.machines list\tThe machines that pass a "
            "filter.\nauthentication:operation\tcom.acme.inventory.machines list\t\n");
  EXPECT_THAT(RunOnThree("search machines\\.(get|list)$ --regex --kind operation").out,
              StartsWith("metamodel:operation\tcom.acme.inventory.machines get\t"));
  EXPECT_EQ(RunOnThree("search machines.get --regex --kind operation").status, 3);
  EXPECT_THAT(RunOnThree("search dis[k]s --regex").out, HasSubstr("Its disks go with it."));
  EXPECT_EQ(RunOnThree("search dis[k]s").status, 3);
}

TEST(Search, WrongExpressionsAndNoTextAreWrongUsage) {
  const ToolRun wrong = RunOnThree("search a( --regex");
  EXPECT_EQ(wrong.status, 2);
  EXPECT_EQ(wrong.err, "zelk-metadata: 'a(' is not a regular expression: missing ): a(\n");
  const ToolRun empty = RunTool({"search", ""});
  EXPECT_EQ(empty.status, 2);
  EXPECT_EQ(empty.err, "zelk-metadata: the text to search for is empty\n");
}

TEST(Search, ExpressionOnAHostileTextNeedsLittleTimeAndStack) {
  const TempFolder folder;
  const std::string text(4'000'000, 'a');
  const std::string file =
      folder.Write("a.json", MetamodelFile(Component("c", {Package("p")}).Doc(text)));
  EXPECT_EQ(RunTool({"search", "(a*)*(a|aa)*b", "--regex", "--source", file}).status, 3);
}
