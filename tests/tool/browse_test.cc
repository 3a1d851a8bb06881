#include <algorithm>
#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "commands/table.h"
#include "domains/table.h"
#include "host/host.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Operation;
using Zelk::Testing::Package;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunTool;
using Zelk::Testing::Service;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::Command;

namespace {

const std::string kThreeDomains = " --source " + kDataFolder + "/inventory.json --source " +
                                  kDataFolder + "/schemes.json --source " + kDataFolder +
                                  "/commands.json";

ToolRun RunOnThree(const std::string& line) {
  return RunLine(line + kThreeDomains);
}

ToolRun RunOnInput(const std::vector<std::string>& args, const std::string& input) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int status = Zelk::Tool::Run(args, {in, out, err});
  return {status, out.str(), err.str()};
}

rapidjson::Document Parsed(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.c_str());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

class InSourceFolder {
 public:
  InSourceFolder() { std::filesystem::current_path(ZELK_SOURCE_DIR); }

  InSourceFolder(const InSourceFolder&) = delete;
  InSourceFolder& operator=(const InSourceFolder&) = delete;

  ~InSourceFolder() { std::filesystem::current_path(before_); }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

}  // namespace

TEST(Browse, TheExampleOfEveryCommandWorksAndIsInTheTour) {
  const InSourceFolder in_source_folder;
  const std::string tour = FileText("docs/tour.md");
  for (const Command& command : Zelk::Tool::ProgramLanguage().commands) {
    const std::string& example = command.example;
    const ToolRun run = RunLine(example);
    EXPECT_EQ(run.status, 0) << example;
    EXPECT_EQ(run.err, "") << example;
    EXPECT_THAT(tour, HasSubstr("\n$ zelk-metadata " + example + "\n"));
  }
}

TEST(Browse, AKindOfSeveralDomainsIsAnsweredByAllThatHaveSources) {
  EXPECT_EQ(RunOnThree("list components").out, "com.acme\ncom.acme\n");
  EXPECT_EQ(RunOnThree("list authentication:components").out, "com.acme\n");
  EXPECT_EQ(RunOnThree("list components --output table").out,
            "DOMAIN          NAME\nmetamodel       com.acme\nauthentication  com.acme\n");
  EXPECT_EQ(RunOnThree("list components --json").out, "[\"com.acme\",\"com.acme\"]\n");
  EXPECT_EQ(RunOnThree("list sources").out, "inventory\nschemes\ncommands\n");
}

TEST(Browse, FingerprintsOfSeveralDomainsSayWhatTheyAreOf) {
  const std::string all = RunOnThree("fingerprint").out;
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    const std::string one = RunOnThree("fingerprint " + std::string(domain) + ":source").out;
    EXPECT_EQ(one.size(), 33U);
    EXPECT_THAT(all, HasSubstr(one.substr(0, 32) + "\t" + domain + ":source\n"));
  }
  const auto document = Parsed(RunOnThree("fingerprint --json").out);
  ASSERT_EQ(document.Size(), 3U);
  EXPECT_STREQ(document[2]["domain"].GetString(), "cli");
}

TEST(Browse, AnIdThatOneDomainKnowsIsNoErrorOfTheOthers) {
  const ToolRun run = RunOnThree("get package com.acme.visitors");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "package com.acme.visitors\n");
  EXPECT_EQ(run.err, "");
}

TEST(Browse, APageHasWhatTheOtherDomainsSay) {
  const ToolRun run = RunOnThree("get operation com.acme.inventory.machines list");
  EXPECT_THAT(run.out, StartsWith("list(filter: "));
  EXPECT_THAT(run.out, HasSubstr("\nSchemes listed:\n"
                                 "    package com.acme.inventory\n"
                                 "        com.acme.badge (SESSION_AWARE, session manager "
                                 "com.acme.session)\n"
                                 "    service com.acme.inventory.machines\n"
                                 "        com.acme.badge (SESSION_AWARE, session manager "
                                 "com.acme.session)\n"
                                 "        com.acme.none (SESSIONLESS)\n"
                                 "    operation list\n"
                                 "        com.acme.none (SESSIONLESS)\n"));
  EXPECT_THAT(run.out, testing::EndsWith("\nCommands that call it:\n"
                                         "    acme.machines.list  List machines.\n"));
}

TEST(Browse, SchemesAreNotInherited) {
  const ToolRun run = RunOnThree("get operation com.acme.inventory.machines get");
  EXPECT_THAT(run.out, HasSubstr("\n    operation get: no record\n"));
}

TEST(Browse, WithoutOtherDomainsAPageSaysNothingOfThem) {
  const ToolRun run = RunLine("get operation com.acme.inventory.machines list --source " +
                              kDataFolder + "/inventory.json");
  EXPECT_THAT(run.out, AllOf(Not(HasSubstr("Schemes")), Not(HasSubstr("Commands"))));
}

TEST(Browse, SeveralIdsAreShownOneAfterTheOther) {
  const std::string source = " --source " + kDataFolder + "/inventory.json";
  const std::string one = RunLine("get package com.acme.empty" + source).out;
  const std::string other = RunLine("get package com.acme.inventory" + source).out;
  const ToolRun both = RunLine("get packages com.acme.empty com.acme.inventory" + source);
  EXPECT_EQ(both.out, one + "\n" + other);
  const ToolRun half = RunLine("get packages nope com.acme.empty" + source);
  EXPECT_EQ(half.status, 3);
  EXPECT_EQ(half.out, one);
  EXPECT_EQ(half.err, "zelk-metadata: Metamodel package not found: nope\n");
}

TEST(Browse, SeveralOperationsAreGivenAsPairs) {
  const std::string source = " --source " + kDataFolder + "/inventory.json";
  const std::string service = "com.acme.inventory.machines ";
  const ToolRun run =
      RunLine("get operations " + service + "get " + service + "list --json" + source);
  const auto document = Parsed(run.out);
  ASSERT_EQ(document.Size(), 2U);
  EXPECT_STREQ(document[0]["record"]["name"].GetString(), "get");
  EXPECT_STREQ(document[1]["ids"][1].GetString(), "list");
  EXPECT_EQ(RunLine("get operations " + service + "get " + service + source).status, 2);
}

TEST(Browse, TreeShowsEachThingBelowWhatItIsInWithCounts) {
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

TEST(Browse, TreeGoesAsDeepAsIsAskedFor) {
  EXPECT_EQ(RunOnThree("tree --depth 0 --source " + kDataFolder + "/network.json").status, 0);
  const std::string none = RunOnThree("tree --depth 0").out;
  EXPECT_EQ(std::count(none.begin(), none.end(), '\n'), 3);
  const std::string one = RunOnThree("tree --depth 1").out;
  EXPECT_EQ(std::count(one.begin(), one.end(), '\n'), 6);
}

TEST(Browse, TreeInJsonNestsWhatIsInside) {
  const auto document = Parsed(RunOnThree("tree --json").out);
  ASSERT_EQ(document.Size(), 3U);
  EXPECT_STREQ(document[0]["name"].GetString(), "metamodel");
  const auto& component = document[0]["children"][0];
  EXPECT_STREQ(component["ids"][0].GetString(), "com.acme");
  EXPECT_EQ(component["counts"]["package"].GetUint(), 2U);
  EXPECT_EQ(component["children"].Size(), 2U);
}

TEST(Browse, TreeShowsWhatSeveralSourcesHoldOnce) {
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

TEST(Browse, SearchFindsNamesBeforeTexts) {
  const ToolRun run = RunOnThree("search MACHINES --output plain");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith("metamodel:service\tcom.acme.inventory.machines\t"));
  const std::size_t name = run.out.find("cli:namespace\tacme.machines\t");
  const std::size_t text = run.out.find("cli:command\tacme.machines.list\tList machines.\n");
  EXPECT_LT(name, text);
  EXPECT_NE(text, std::string::npos);
}

TEST(Browse, SearchShowsTheLineThatHoldsTheText) {
  const ToolRun run = RunOnThree("search disks");
  EXPECT_THAT(run.out, HasSubstr("metamodel:operation\tcom.acme.inventory.machines remove\t"
                                 "\\x09Its disks go with it.\n"));
}

TEST(Browse, SearchForADottedTextLooksInWholeNames) {
  EXPECT_THAT(RunOnThree("search machines.list --json").out, HasSubstr("\"matched\":\"name\""));
  EXPECT_THAT(RunOnThree("search machines.list").out,
              HasSubstr("cli:command\tacme.machines.list\tList machines.\n"));
}

TEST(Browse, SearchThatFindsNothingSaysSo) {
  const ToolRun run = RunOnThree("search gizmo");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelk-metadata: no name or documentation contains 'gizmo'\n");
  EXPECT_EQ(RunOnThree("search gizmo --json").out, "[]\n");
}

TEST(Browse, UsageOfANamespaceShowsWhatIsInIt) {
  EXPECT_EQ(RunOnThree("usage").out,
            "Usage: NAMESPACE|COMMAND ...\n    Root namespace\n\n"
            "Namespaces:\n    acme  acme namespace\n\n"
            "Commands:\n    ping  See whether anyone is there.\n");
  EXPECT_EQ(RunOnThree("usage acme machines").out,
            "Usage: acme machines NAMESPACE|COMMAND ...\n    Machines and what runs on them.\n\n"
            "Commands:\n    list  List machines.\n");
}

TEST(Browse, UsageOfACommandShowsItsOptionsItsOutputAndWhatItCalls) {
  const std::string page = RunOnThree("usage acme machines list").out;
  EXPECT_THAT(page, StartsWith("Usage: acme machines list [OPTIONS]\n    List machines.\n\n"
                               "Options:\n    --name, -n: LIST<String>\n"));
  EXPECT_THAT(page, HasSubstr("\nOutput of com.acme.inventory.machine:\n    Name: name\n"));
  EXPECT_THAT(page, HasSubstr("\nCalls:\n    list of com.acme.inventory.machines\n"
                              "    shown as TABLE\n\nOperation:\n    list(filter: "));
  EXPECT_THAT(page, HasSubstr("\nSchemes listed:\n    package com.acme.inventory\n"));
  EXPECT_EQ(RunOnThree("usage acme.machines.list").out, page);
}

TEST(Browse, UsageInJsonIsTheCommandsRecordOrWhatIsInTheNamespace) {
  EXPECT_EQ(RunOnThree("usage acme machines list --json").out,
            RunOnThree("get command acme.machines.list --json").out);
  const auto document = Parsed(RunOnThree("usage acme --json").out);
  EXPECT_STREQ(document["namespaces"][0]["name"].GetString(), "machines");
}

TEST(Browse, UsageOfNothingNamesWhatIsNear) {
  const ToolRun run = RunOnThree("usage acme machine list");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zelk-metadata: no namespace or command is called 'acme.machine.list'; did "
            "you mean acme.machines.list?\n");
  EXPECT_EQ(RunOnInventory("usage").err,
            "zelk-metadata: no source that is loaded describes a command-line client\n");
  EXPECT_EQ(RunOnInventory("usage").status, 3);
}

TEST(Browse, WithoutSourcesThereIsNothingButNoHarm) {
  const ToolRun tree = RunLine("tree");
  EXPECT_EQ(tree.out, "");
  EXPECT_EQ(tree.err, "zelk-metadata: nothing is loaded; --source PATH loads a file or a folder\n");
  EXPECT_EQ(tree.status, 0);
  EXPECT_EQ(RunLine("tree --json").out, "[]\n");
  EXPECT_EQ(RunLine("search x").status, 3);
  EXPECT_EQ(RunLine("which component x").status, 3);
  EXPECT_EQ(RunLine("usage").status, 3);
}

TEST(Browse, SourcesThatHoldNothingHaveATreeOfNothing) {
  const TempFolder folder;
  folder.Write("cli.json", R"({"cli": []})");
  folder.Write("metamodel.json", MetamodelFile(Component("c")));
  EXPECT_EQ(RunTool({"tree", "--source", folder.Path("")}).out,
            "metamodel (1 component)\n    component c\ncli\n");
}

TEST(Folders, EveryJsonFileInThemIsLoadedUnderItsOwnName) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("inner"));
  std::filesystem::create_directory(folder.Path(".hidden"));
  for (const char* name :
       {"b.json", "a.json", "inner/c.json", "d.txt", ".e.json", ".hidden/f.json"}) {
    folder.Write(name, MetamodelFile(Component(name)));
  }
  EXPECT_EQ(RunTool({"list", "sources", "--source", folder.Path("")}).out, "a\nb\nc\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "x=" + folder.Path("")}).out,
            "x/a\nx/b\nx/c\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "inner=" + folder.Path("inner")}).out,
            "inner/c\n");
}

TEST(Folders, AFolderWithoutFilesIsASourceThatFails) {
  const TempFolder folder;
  const ToolRun run = RunTool({"list", "sources", "--source", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zelk-metadata: " + folder.Path("") + ": no *.json file is in this folder\n");
}

TEST(Folders, LinksToFilesAreLoadedAndLinksToFoldersAreNotFollowed) {
  const TempFolder folder;
  const TempFolder other;
  const std::string file = other.Write("b.json", MetamodelFile(Component("c")));
  std::filesystem::create_symlink(file, folder.Path("a.json"));
  std::filesystem::create_directory_symlink(other.Path(""), folder.Path("link"));
  std::filesystem::create_directory_symlink(folder.Path(""), folder.Path("round"));
  EXPECT_EQ(RunTool({"list", "sources", "--source", folder.Path("")}).out, "a\n");
}

TEST(Folders, OneBadFileDoesNotHideTheOthersAndIsNamedAtTheEnd) {
  const TempFolder folder;
  folder.Write("a.json", "?");
  folder.Write("b.json", MetamodelFile(Component("c")));
  const ToolRun run = RunTool({"list", "components", "--source", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "c\n");
  EXPECT_THAT(run.err, testing::EndsWith("\nzelk-metadata: 1 of 2 sources failed to load: " +
                                         folder.Path("a.json") + "\n"));
}

TEST(StandardInput, IsASource) {
  const std::string file = MetamodelFile(Component("c"));
  EXPECT_EQ(RunOnInput({"list", "components", "--source", "-"}, file).out, "c\n");
  EXPECT_EQ(RunOnInput({"list", "sources", "--source", "-"}, file).out, "stdin\n");
  EXPECT_EQ(RunOnInput({"list", "sources", "--source", "id=-"}, file).out, "id\n");
  EXPECT_EQ(RunOnInput({"tree", "--source", "-"}, file).out,
            "metamodel (1 component)\n    component c\n")
      << "which loads it more than once";
  EXPECT_EQ(
      RunOnInput({"list", "namespaces", "--source", "-"}, FileText(kDataFolder + "/commands.json"))
          .out,
      ".\nacme\nacme.machines\n");
}

TEST(StandardInput, ThatIsNoMetadataFailsLikeAFile) {
  const ToolRun run = RunOnInput({"list", "components", "--source", "-"}, "\n?");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "zelk-metadata: standard input:2:1: Metamodel source file parse error : 3 at 1 "
            "[zelk.metadata.metamodel.parse.error]\n");
  EXPECT_EQ(RunOnInput({"list", "components", "--source", "-"}, "").status, 1);
}

TEST(StandardInput, CanBeReadOnce) {
  const ToolRun run = RunOnInput({"list", "components", "--source", "-", "--source", "x=-"},
                                 MetamodelFile(Component("c")));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "c\n");
  EXPECT_THAT(run.err, StartsWith("zelk-metadata: standard input: it can be read only once\n"));
}

TEST(Browse, NamesCannotDriveTheTerminalWhereverTheyAreShown) {
  const TempFolder folder;
  const std::string evil = R"(\u001b[2J\u009b31m)";
  const std::string metamodel = folder.Write(
      "m.json",
      MetamodelFile(
          Component(evil, {Package(evil, {Service(evil, {Operation(evil)})})}).Doc(evil)));
  const std::string cli =
      folder.Write("c.json", R"({"cli": [{"type": "namespace", "path": "", "name": ")" + evil +
                                 R"(", "description": ")" + evil + R"("}]})");
  const std::string name = "\x1b[2J\u009b31m";
  const std::vector<std::vector<std::string>> lines{
      {"tree"},
      {"usage"},
      {"usage", name},
      {"search", "31m"},
      {"which", "service", name},
      {"get", "operation", name, name},
      {"list", "services", "--output", "table"},
      {"get", "service", name + "x"},
      {"fingerprint", "component", name, "--output", "table"}};
  for (std::vector<std::string> line : lines) {
    line.insert(line.end(), {"--source", metamodel, "--source", cli});
    const ToolRun run = RunTool(line);
    EXPECT_THAT(run.out + run.err,
                AllOf(HasSubstr("\\x1b[2J"), Not(HasSubstr("\x1b")), Not(HasSubstr("\u009b"))))
        << line[0];
  }
}

TEST(Browse, OneSourceThatFailsDoesNotHideWhatTheOthersHold) {
  const std::string bad = " --source " + kDataFolder + "/truncated.json";
  for (const char* line : {"tree", "search acme", "which component com.acme"}) {
    const ToolRun run = RunOnInventory(line + bad);
    EXPECT_THAT(run.out, HasSubstr("com.acme")) << line;
    EXPECT_EQ(run.status, 1) << line;
  }
}

TEST(Browse, WhichTellsOfEveryDomainThatHasTheName) {
  const ToolRun run = RunOnThree("which package com.acme.inventory");
  EXPECT_THAT(run.out, AllOf(HasSubstr("metamodel:package com.acme.inventory\n"),
                             HasSubstr("\n\nauthentication:package com.acme.inventory\n")));
  EXPECT_EQ(run.status, 0);
}

TEST(Browse, TreeInJsonGoesAsDeepAsIsAskedFor) {
  const std::string whole = RunOnInventory("tree --json").out;
  const std::string top = RunOnInventory("tree --json --depth 1").out;
  EXPECT_LT(top.size(), whole.size());
  EXPECT_THAT(top, HasSubstr(R"("kind":"component")"));
  EXPECT_THAT(top, Not(HasSubstr(R"("kind":"package")")));
}

TEST(Browse, AFormatterThatACommandDoesNotHaveIsNotShown) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", R"({"cli": [{"type": "command", "path": "a",
    "name": "b", "description": "", "node_metadata": {"service_id": "s", "operation_id": "o"}}]})");
  for (const char* command : {"get command a b", "usage a b"}) {
    const ToolRun run = RunLine(std::string(command) + " --source " + file);
    EXPECT_THAT(run.out, testing::Not(testing::ContainsRegex("[Ss]hown as"))) << command;
    EXPECT_EQ(run.status, 0) << run.err;
  }
  EXPECT_THAT(RunLine("get command a b --json --source " + file).out,
              testing::Not(HasSubstr(R"("formatter":")")));
}

TEST(Browse, ADotWithinTheNameOfACommandIsNoEndOfANamespace) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", R"({"cli": [{"type": "command", "path": "a",
    "name": "b.c", "description": "", "node_metadata": {"service_id": "s", "operation_id": "o"}}]})");
  EXPECT_THAT(RunLine("tree --source " + file).out, HasSubstr("command b.c\n"));
  EXPECT_EQ(RunLine("get command a b.c --source " + file).status, 0);
}

TEST(Browse, WhatHasNoPartsHasAPageWithoutThem) {
  const TempFolder folder;
  const std::string constant = R"("constants": [{"name": "k", "documentation": "", "value": 1,
    "type": {"category": "PRIMITIVE", "type": "LONG"}}])";
  const std::string file = folder.Write(
      "a.json", R"({"metamodel": {"component": {"name": "c", "documentation": "", "metadata": {},
    "packages": [{"name": "p", "documentation": "", "metadata": {}, "structures": [],
    "enumerations": [{"name": "e", "documentation": "", "metadata": {}, "values": []}],
    "services": [{"name": "s", "documentation": "", "metadata": {}, "structures": [],
    "enumerations": [], "operations": [], )" +
                    constant + "}]}]}}}");
  EXPECT_THAT(RunLine("get enumeration e --source " + file).out, Not(HasSubstr("Values")));
  const std::string service = RunLine("get service s --source " + file).out;
  EXPECT_THAT(service, HasSubstr("k: LONG"));
  EXPECT_THAT(service, Not(HasSubstr("k: LONG =")));
}

TEST(Browse, OutlinesAreMadeOfFilesThatAreStillThere) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", FileText(kDataFolder + "/inventory.json"));
  Zelk::Tool::Host host(Zelk::Tool::Domains());
  host.Load({"a", file});
  std::filesystem::remove(file);
  std::vector<Zelk::Tool::LoadReport> failures;
  EXPECT_TRUE(host.Outlines(failures).empty());
  EXPECT_EQ(failures.size(), 1U);
}

TEST(Browse, AServiceThatOnlyAuthenticationKnowsHasItsPage) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", R"({"authentication": {"component": {"name": "c",
    "schemes": {"x": {"authenticationScheme": "scheme", "type": "SESSIONLESS"}},
    "services": {"p.only_here": ["x"]}}}})");
  const ToolRun run = RunOnInventory("get service p.only_here --source " + file);
  EXPECT_THAT(run.out, HasSubstr("scheme"));
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Browse, ASourceOfSeveralDomainsHasAPageInEach) {
  const std::string sources =
      " --source x=" + kDataFolder + "/inventory.json --source x=" + kDataFolder + "/schemes.json";
  const ToolRun page = RunLine("get source x" + sources);
  EXPECT_THAT(page.out, AllOf(HasSubstr("inventory.json"), HasSubstr("schemes.json")));
  const auto json = Parsed(RunLine("get source x --json" + sources).out);
  ASSERT_TRUE(json.IsArray());
  ASSERT_EQ(json.Size(), 2U);
  EXPECT_STREQ(json[0]["domain"].GetString(), "metamodel");
  EXPECT_STREQ(json[1]["domain"].GetString(), "authentication");
}
