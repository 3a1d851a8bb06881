#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::Component;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Operation;
using Zelk::Testing::Package;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::RunTool;
using Zelk::Testing::Service;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

TEST(Tree, ShowsChildrenBelowParentsWithCounts) {
  const ToolRun run = RunOnThree("tree");
  EXPECT_THAT(run.out, HasSubstr("metamodel (1 component, 2 packages, 2 services, "));
  EXPECT_THAT(run.out, HasSubstr("\n    component com.acme (2 packages, 2 services, "));
  EXPECT_THAT(run.out, HasSubstr("\n        package com.acme.empty\n"));
  EXPECT_THAT(run.out, HasSubstr("\n                operation list\n"));
  EXPECT_THAT(run.out, HasSubstr("\ncli (3 namespaces, 2 commands)\n"
                                 "    namespace . (2 namespaces, 2 commands)\n"
                                 "        command ping\n"
                                 "        namespace acme (1 namespace, 1 command)\n"
                                 "            namespace machines (1 command)\n"
                                 "                command list\n"));
}

TEST(Tree, DepthLimitsTheLevels) {
  EXPECT_EQ(RunOnThree("tree --depth 0 --source " + kDataFolder + "/network.json").status, 0);
  const std::string none = RunOnThree("tree --depth 0").out;
  EXPECT_EQ(std::count(none.begin(), none.end(), '\n'), 3);
  const std::string one = RunOnThree("tree --depth 1").out;
  EXPECT_EQ(std::count(one.begin(), one.end(), '\n'), 6);
}

TEST(Tree, JsonNestsChildren) {
  const auto document = ParsedJson(RunOnThree("tree --json").out, "entries");
  ASSERT_EQ(document.Size(), 3U);
  EXPECT_STREQ(document[0]["name"].GetString(), "metamodel");
  const auto& component = document[0]["children"][0];
  EXPECT_STREQ(component["ids"][0].GetString(), "com.acme");
  EXPECT_EQ(component["counts"]["package"].GetUint(), 2U);
  EXPECT_EQ(component["children"].Size(), 2U);
}

TEST(Tree, MergesSources) {
  const TempFolder folder;
  const std::string first = folder.Write(
      "a.json", MetamodelFile(Component(
                    "c", {Package("p", {Service("s", {Operation("o")})}), Package("q")})));
  const std::string second = folder.Write(
      "b.json", MetamodelFile(Component("c", {Package("p", {Service("s", {Operation("hidden")}),
                                                            Service("t", {Operation("o")})})})));
  EXPECT_EQ(RunTool({"tree", "--source", folder.Path("")}).out,
            "metamodel (1 component, 2 packages, 2 services, 2 operations)\n"
            "    component c (2 packages, 2 services, 2 operations)\n"
            "        package p (2 services, 2 operations)\n"
            "            service s (1 operation)\n"
            "                operation o\n"
            "            service t (1 operation)\n"
            "                operation o\n"
            "        package q\n")
      << "the operations of the second s cannot be seen";
}

TEST(Tree, EmptySourcesHaveEmptyTrees) {
  const TempFolder folder;
  folder.Write("cli.json", R"({"cli": []})");
  folder.Write("metamodel.json", MetamodelFile(Component("c")));
  EXPECT_EQ(RunTool({"tree", "--source", folder.Path("")}).out,
            "metamodel (1 component)\n    component c\ncli\n");
}

TEST(Tree, DepthLimitsTheLevelsOfJson) {
  const std::string whole = RunOnInventory("tree --json").out;
  const std::string top = RunOnInventory("tree --json --depth 1").out;
  EXPECT_LT(top.size(), whole.size());
  EXPECT_THAT(top, HasSubstr(R"("kind":"component")"));
  EXPECT_THAT(top, Not(HasSubstr(R"("kind":"package")")));
}

TEST(Tree, SecondSourceWithTheSameIdIsRefused) {
  const ToolRun run = RunLine("tree --source a=" + kDataFolder +
                              "/inventory.json --source a=" + kDataFolder + "/network.json");
  EXPECT_THAT(run.out, HasSubstr("component com.acme"));
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("[zelk.metada.metamodel.source.exists]"));
}
