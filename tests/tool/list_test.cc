#include <string>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/cli_files.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// What words select among the names of a kind.

using testing::HasSubstr;
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
using Zelk::Testing::Service;
using Zelk::Testing::Structure;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

TEST(List, IdOfAPackageListsWhatIsInIt) {
  EXPECT_EQ(RunOnInventory("list services com.acme.inventory").out,
            "com.acme.inventory.folders\ncom.acme.inventory.machines\n");
  EXPECT_EQ(RunOnInventory("list structures com.acme.inventory.machines").out,
            "com.acme.inventory.machines.filter\n");
  EXPECT_EQ(RunOnInventory("list enumerations com.acme.inventory.machine").out,
            "com.acme.inventory.machine.power\n");
  const ToolRun empty = RunOnInventory("list services com.acme.empty");
  EXPECT_EQ(empty.out + empty.err, "");
  EXPECT_EQ(empty.status, 0);
}

TEST(List, OperationsOfAPackageHaveTheirFullNames) {
  EXPECT_EQ(RunOnInventory("list operations com.acme.inventory").out,
            "com.acme.inventory.machines.get\ncom.acme.inventory.machines.list\n"
            "com.acme.inventory.machines.remove\n");
  EXPECT_EQ(RunOnInventory("list operations com.acme.inventory.machines").out,
            "get\nlist\nremove\n");
  EXPECT_EQ(
      RunOnInventory("list operations com.acme.inventory.machines com.acme.inventory.folders").out,
      "com.acme.inventory.machines.get\ncom.acme.inventory.machines.list\n"
      "com.acme.inventory.machines.remove\n");
}

TEST(List, InnermostOfSeveralThingsWithTheIdCounts) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "a.json", MetamodelFile(Component(
                    "x", {Package("x", {Service("one")}), Package("y", {Service("two")})})));
  EXPECT_EQ(RunLine("list services x --source " + file).out, "one\n");
  EXPECT_EQ(RunLine("list packages x --source " + file).out, "x\ny\n");
}

TEST(List, ThingsOfAllSourcesAreInAPackage) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("c", {Package("p", {Service("one")})})));
  folder.Write("b.json", MetamodelFile(Component("c", {Package("p", {Service("two")})})));
  EXPECT_EQ(RunLine("list services p --source " + folder.Path("")).out, "one\ntwo\n");
}

TEST(List, WordsSelectByTheBeginningOfNames) {
  EXPECT_EQ(RunOnInventory("list structures com.acme.inventory.m").out,
            "com.acme.inventory.machine\ncom.acme.inventory.machines.filter\n");
  EXPECT_EQ(RunOnInventory("list structures com.acme.inventory.d com.acme.inventory.b "
                           "com.acme.inventory.disk")
                .out,
            "com.acme.inventory.disk\ncom.acme.inventory.busy\n")
      << "each name once";
  EXPECT_EQ(RunOnInventory("list operations com.acme.inventory.machines.l").out,
            "com.acme.inventory.machines.list\n");
}

TEST(List, PatternsMatchWholeNames) {
  EXPECT_EQ(RunOnInventory("list structures *.filter").out, "com.acme.inventory.machines.filter\n");
  EXPECT_EQ(RunOnInventory("list structures com.*.[bd]?s*").out,
            "com.acme.inventory.busy\ncom.acme.inventory.disk\n");
  EXPECT_EQ(RunOnInventory("list operations *").out,
            "com.acme.inventory.machines.get\ncom.acme.inventory.machines.list\n"
            "com.acme.inventory.machines.remove\n");
  EXPECT_EQ(RunOnInventory("list models *machine").out, "com.acme.inventory.machine\n");
}

TEST(List, WordThatSelectsNothingIsNotFoundWithNearNames) {
  const ToolRun prefix = RunOnInventory("list services com.acme.inventary com.acme.inventory.f");
  EXPECT_EQ(prefix.status, 3);
  EXPECT_EQ(prefix.out, "com.acme.inventory.folders\n");
  EXPECT_EQ(prefix.err,
            "zelk-metadata: no service begins with 'com.acme.inventary', and no package or "
            "component has that id; did you mean com.acme.inventory?\n");
  const ToolRun pattern = RunOnInventory("list components *nope --json");
  EXPECT_EQ(pattern.status, 3);
  EXPECT_EQ(pattern.out, "{\"version\":1,\"names\":[]}\n");
  EXPECT_EQ(pattern.err, "zelk-metadata: no component matches '*nope'\n");
}

TEST(List, NamespaceHasTheCommandsDirectlyInIt) {
  EXPECT_EQ(RunOnThree("list commands acme.machines").out, "acme.machines.list\n");
  const ToolRun outer = RunOnThree("list commands acme");
  EXPECT_EQ(outer.status, 0);
  EXPECT_EQ(outer.out, "");
  EXPECT_EQ(outer.err,
            "zelk-metadata: the namespace 'acme' has no commands directly in it; 'acme.*' matches "
            "those in its namespaces\n");
  EXPECT_EQ(RunOnThree("list commands acme.*").out, "acme.machines.list\n");
  EXPECT_EQ(RunOnThree("list commands .").out, "ping\n");
  EXPECT_EQ(RunOnThree("list namespaces acme").out, "acme.machines\n");
}

TEST(List, RootNamespaceWithoutCommandsIsNotAnError) {
  const TempFolder folder;
  const std::string file =
      folder.Write("c.json", CliFile({NamespaceNode("", "a"), CommandNode("a", "c")}));
  const ToolRun run = RunLine("list commands . --source " + file);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zelk-metadata: the namespace '.' has no commands directly in it; '*' "
            "matches those in its namespaces\n");
}

TEST(List, HelpExplainsTheKindHidden) {
  EXPECT_THAT(RunLine("list --help").out,
              HasSubstr("The list of the kind hidden is always empty."));
  EXPECT_EQ(RunOnThree("list hidden").out, "");
}

TEST(List, DomainsThatHaveTheNamesAreShown) {
  EXPECT_EQ(RunOnThree("list services com.acme.inventory.ma --output table").out,
            "DOMAIN          NAME\n"
            "metamodel       com.acme.inventory.machines\n"
            "authentication  com.acme.inventory.machines\n");
  EXPECT_EQ(RunOnThree("list packages com.acme.v --output table").out, "NAME\ncom.acme.visitors\n");
  const auto document = ParsedJson(RunOnThree("list packages com.acme.v --json").out, "names");
  ASSERT_EQ(document.Size(), 1U);
  EXPECT_STREQ(document[0]["domain"].GetString(), "authentication");
  EXPECT_STREQ(document[0]["kind"].GetString(), "package");
  EXPECT_STREQ(document[0]["name"].GetString(), "com.acme.visitors");
}

TEST(List, DomainBeforeTheKindIsTheOnlyOne) {
  EXPECT_EQ(RunOnThree("list cli:sources c").out, "commands\n");
  EXPECT_EQ(RunOnThree("list metamodel:packages com.acme.v").status, 3);
}
