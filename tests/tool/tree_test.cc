#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/cli_files.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::CliFile;
using Zelk::Testing::CommandNode;
using Zelk::Testing::Component;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::NamespaceNode;
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
            "metamodel (1 component)\n    component c\ncli (nothing)\n");
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

TEST(Tree, IdShowsOnlyThatPart) {
  EXPECT_EQ(RunOnThree("tree com.acme.inventory.machines").out,
            "metamodel (1 service, 3 operations)\n"
            "    service com.acme.inventory.machines (3 operations)\n"
            "        operation get\n"
            "        operation list\n"
            "        operation remove\n"
            "authentication (1 service, 1 operation)\n"
            "    service com.acme.inventory.machines (1 operation)\n"
            "        operation list\n");
  EXPECT_EQ(RunOnThree("tree acme.machines").out,
            "cli (1 namespace, 1 command)\n"
            "    namespace machines (1 command)\n"
            "        command list\n");
  EXPECT_EQ(RunOnThree("tree com.acme.inventory.machines.get").out,
            "metamodel (1 operation)\n    operation get\n");
}

TEST(Tree, DepthLimitsTheLevelsOfAPart) {
  EXPECT_EQ(RunOnInventory("tree com.acme.inventory --depth 1").out,
            "metamodel (1 package, 2 services, 3 operations)\n"
            "    package com.acme.inventory (2 services, 3 operations)\n");
}

TEST(Tree, IdOfSeveralThingsIsThatOfTheOutermost) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "a.json", MetamodelFile(Component("x", {Package("x", {Service("x")}), Package("y")})));
  EXPECT_EQ(RunLine("tree x --source " + file).out,
            "metamodel (1 component, 2 packages, 1 service)\n"
            "    component x (2 packages, 1 service)\n"
            "        package x (1 service)\n"
            "            service x\n"
            "        package y\n");
}

TEST(Tree, UnknownIdIsNotFoundWithNearIds) {
  const ToolRun run = RunOnThree("tree com.acme.inventory.machine --json");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "{\"version\":1,\"entries\":[]}\n");
  EXPECT_EQ(run.err,
            "zelk-metadata: nothing in the tree has the id 'com.acme.inventory.machine'; did you "
            "mean com.acme.inventory.machines?\n");
}

TEST(Tree, CommandOfAnUndescribedNamespaceHasItsPath) {
  const TempFolder folder;
  const std::string file =
      folder.Write("c.json", CliFile({CommandNode("a.b", "c"), NamespaceNode("", "z")}));
  EXPECT_EQ(RunLine("tree --source " + file).out,
            "cli (2 namespaces, 1 command)\n"
            "    namespace . (1 namespace, 1 command)\n"
            "        namespace z\n"
            "        command a.b.c\n");
}
