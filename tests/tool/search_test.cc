#include <string>

#include <gmock/gmock.h>

#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::RunOnThree;
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
  EXPECT_EQ(RunOnThree("search gizmo --json").out, "{\"version\":1,\"matches\":[]}\n");
}
