#include <string>

#include <gmock/gmock.h>

#include "support/cli_files.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::CliFile;
using Zelk::Testing::CommandNode;
using Zelk::Testing::NamespaceNode;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

TEST(Usage, NamespaceShowsItsChildren) {
  EXPECT_EQ(RunOnThree("usage").out,
            "Usage: NAMESPACE|COMMAND ...\n    Root namespace\n\n"
            "Namespaces:\n    acme  acme namespace\n\n"
            "Commands:\n    ping  See whether anyone is there.\n");
  EXPECT_THAT(RunOnThree("usage acme").out, StartsWith("Usage: acme NAMESPACE ...\n"));
  EXPECT_EQ(RunOnThree("usage acme machines").out,
            "Usage: acme machines COMMAND ...\n    Machines and what runs on them.\n\n"
            "Commands:\n    list  List machines.\n");
}

TEST(Usage, CommandShowsOptionsOutputAndOperation) {
  const std::string page = RunOnThree("usage acme machines list").out;
  EXPECT_THAT(page, StartsWith("Usage: acme machines list [OPTIONS]\n    List machines.\n\n"
                               "Options:\n    --name, -n: LIST<String>\n"));
  EXPECT_THAT(page, HasSubstr("\nOutput of com.acme.inventory.machine:\n    Name: name\n"));
  EXPECT_THAT(page, HasSubstr("\nCalls:\n    list of com.acme.inventory.machines\n"
                              "    shown as TABLE\n\nOperation:\n    list(filter: "));
  EXPECT_THAT(page, HasSubstr("\nSchemes listed:\n    package com.acme.inventory\n"));
  EXPECT_EQ(RunOnThree("usage acme.machines.list").out, page);
}

TEST(Usage, JsonIsTheRecordOrTheChildren) {
  const auto command = ParsedJson(RunOnThree("usage acme machines list --json").out, "usages");
  const auto record =
      ParsedJson(RunOnThree("get command acme.machines.list --json").out, "records");
  EXPECT_TRUE(command[0] == record[0]["record"]);
  const auto document = ParsedJson(RunOnThree("usage acme --json").out, "usages");
  EXPECT_STREQ(document[0]["namespaces"][0]["name"].GetString(), "machines");
}

TEST(Usage, UnknownNameGetsSuggestions) {
  const ToolRun run = RunOnThree("usage acme machine list");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zelk-metadata: no namespace or command has the name 'acme.machine.list'; did "
            "you mean acme.machines.list?\n");
  EXPECT_EQ(RunOnInventory("usage").err,
            "zelk-metadata: no loaded source describes a command-line client\n");
  EXPECT_EQ(RunOnInventory("usage").status, 3);
}

TEST(Usage, RootNamespaceNeedsNoDescription) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "c.json", CliFile({CommandNode("", "b", "Second."), CommandNode("a.b", "c", "First.")}));
  EXPECT_EQ(RunLine("usage --source " + file).out,
            "Usage: COMMAND ...\n\nCommands:\n    b      Second.\n    a b c  First.\n");
  EXPECT_EQ(RunLine("usage a --source " + file).out,
            "Usage: a COMMAND ...\n\nCommands:\n    b c  First.\n");
  EXPECT_EQ(RunLine("usage a b c --source " + file).status, 0);
  EXPECT_EQ(RunLine("usage a.c --source " + file).status, 3);
}

TEST(Usage, CommandIsInTheHelpOfTheNearestDescribedNamespace) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "c.json", CliFile({NamespaceNode("", "a", "A."), CommandNode("a.b", "c", "Inside.")}));
  EXPECT_EQ(RunLine("usage --source " + file).out,
            "Usage: NAMESPACE ...\n    Root namespace\n\nNamespaces:\n    a  A.\n");
  EXPECT_EQ(RunLine("usage a --source " + file).out,
            "Usage: a COMMAND ...\n    A.\n\nCommands:\n    b c  Inside.\n");
}
