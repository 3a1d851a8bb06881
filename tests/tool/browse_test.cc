#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "domains/table.h"
#include "host/host.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// Commands on the files of three domains.

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
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::RunTool;
using Zelk::Testing::Service;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::Command;

namespace {

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

TEST(Commands, ExamplesWorkAndAreInTheTour) {
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

TEST(List, NamesOfAllDomainsWithSources) {
  EXPECT_EQ(RunOnThree("list components").out, "com.acme\ncom.acme\n");
  EXPECT_EQ(RunOnThree("list authentication:components").out, "com.acme\n");
  EXPECT_EQ(RunOnThree("list components --output table").out,
            "DOMAIN          NAME\nmetamodel       com.acme\nauthentication  com.acme\n");
  EXPECT_EQ(RunOnThree("list components --json").out,
            R"({"version":1,"names":[{"domain":"metamodel","kind":"component","name":"com.acme"},)"
            R"({"domain":"authentication","kind":"component","name":"com.acme"}]})"
            "\n");
  EXPECT_EQ(RunOnThree("list sources").out, "inventory\nschemes\ncommands\n");
}

TEST(Fingerprint, OfSeveralDomainsNamesEach) {
  const std::string all = RunOnThree("fingerprint").out;
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    const std::string one = RunOnThree("fingerprint " + std::string(domain) + ":source").out;
    EXPECT_EQ(one.size(), 33U);
    EXPECT_THAT(all, HasSubstr(one.substr(0, 32) + "\t" + domain + ":source\n"));
  }
  const auto document = ParsedJson(RunOnThree("fingerprint --json").out, "fingerprints");
  ASSERT_EQ(document.Size(), 3U);
  EXPECT_STREQ(document[2]["domain"].GetString(), "cli");
}

TEST(Get, IdThatOneDomainKnowsIsNotAnError) {
  const ToolRun run = RunOnThree("get package com.acme.visitors");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "package com.acme.visitors\n");
  EXPECT_EQ(run.err, "");
}

TEST(Get, PageHasSectionsOfTheOtherDomains) {
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

TEST(Get, SchemesAreNotInherited) {
  const ToolRun run = RunOnThree("get operation com.acme.inventory.machines get");
  EXPECT_THAT(run.out, HasSubstr("\n    operation get: no record\n"));
}

TEST(Get, PageOfASingleDomainHasNoSections) {
  const ToolRun run = RunLine("get operation com.acme.inventory.machines list --source " +
                              kDataFolder + "/inventory.json");
  EXPECT_THAT(run.out, AllOf(Not(HasSubstr("Schemes")), Not(HasSubstr("Commands"))));
}

TEST(Get, SeveralIdsAreShownInOrder) {
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

TEST(Get, SeveralOperationsAreGivenAsPairs) {
  const std::string source = " --source " + kDataFolder + "/inventory.json";
  const std::string service = "com.acme.inventory.machines ";
  const ToolRun run =
      RunLine("get operations " + service + "get " + service + "list --json" + source);
  const auto document = ParsedJson(run.out, "records");
  ASSERT_EQ(document.Size(), 2U);
  EXPECT_STREQ(document[0]["record"]["name"].GetString(), "get");
  EXPECT_STREQ(document[1]["ids"][1].GetString(), "list");
  EXPECT_EQ(RunLine("get operations " + service + "get " + service + source).status, 2);
}

TEST(Get, OperationMayBeOneWord) {
  const std::string list = "com.acme.inventory.machines list";
  const std::string page = RunOnThree("get operation " + list).out;
  EXPECT_THAT(page, StartsWith("list(filter: "));
  EXPECT_EQ(RunOnThree("get operation com.acme.inventory.machines.list").out, page);
  EXPECT_EQ(RunOnThree("which operation com.acme.inventory.machines.list").out,
            RunOnThree("which operation " + list).out);
  const ToolRun both = RunOnInventory(
      "get operation com.acme.inventory.machines.get com.acme.inventory.machines.list --json");
  const auto document = ParsedJson(both.out, "records");
  ASSERT_EQ(document.Size(), 2U);
  EXPECT_STREQ(document[1]["ids"][0].GetString(), "com.acme.inventory.machines");
  EXPECT_STREQ(document[1]["ids"][1].GetString(), "list");
  EXPECT_EQ(RunOnInventory("get operation com.acme.inventory.machines.nope").status, 3);
}

TEST(Get, OperationIsNotItsService) {
  const ToolRun run = RunOnInventory("get operation com.acme.inventory.machines");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: usage: zelk-metadata get operation SERVICE OPERATION\n");
}

TEST(Get, TwoFullNamesAreTwoCommands) {
  const ToolRun run = RunOnThree("get command acme.machines.list ping");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out,
              AllOf(HasSubstr("command acme.machines.list\n"), HasSubstr("\ncommand ping\n")));
  const ToolRun namespaces = RunOnThree("get namespace acme acme.machines");
  EXPECT_EQ(namespaces.status, 0) << namespaces.err;
  EXPECT_THAT(namespaces.out,
              AllOf(HasSubstr("namespace acme\n"), HasSubstr("\nnamespace acme.machines\n")));
}

TEST(Get, PathAndNameAreOneCommandIfThePathIsNone) {
  EXPECT_EQ(RunOnThree("get command acme.machines list").out,
            RunOnThree("get command acme.machines.list").out);
  EXPECT_THAT(RunOnThree("get command acme.machines list").out, HasSubstr("acme.machines.list\n"));
  const ToolRun run = RunOnThree("get command acme.machines nope");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("acme.machines is a namespace\n"));
}

TEST(Get, NamespaceShowsItsCommands) {
  EXPECT_THAT(RunOnThree("get namespace acme.machines").out,
              testing::EndsWith("\nCommands:\n    acme.machines.list\n"));
  EXPECT_THAT(RunOnThree("get namespace .").out, testing::EndsWith("\nCommands:\n    ping\n"));
  EXPECT_THAT(RunOnThree("get namespace acme").out, Not(HasSubstr("Commands")));
  EXPECT_EQ(RunOnThree("get namespace nope").status, 3);
}

TEST(Get, RootNamespaceThatIsNotLoadedIsNamed) {
  EXPECT_EQ(RunOnInventory("get namespace .").err, "zelk-metadata: Cli namespace not found: .\n");
}

TEST(Get, IdOfAnotherKindIsExplained) {
  EXPECT_EQ(RunOnInventory("get service com.acme.inventory.layer").err,
            "zelk-metadata: Metamodel service not found: com.acme.inventory.layer; "
            "com.acme.inventory.layer is an enumeration\n");
}

TEST(Get, PagesOfSeveralDomainsNameThem) {
  const std::string sources =
      " --source x=" + kDataFolder + "/inventory.json --source x=" + kDataFolder + "/schemes.json";
  EXPECT_THAT(RunLine("get source x" + sources).out,
              AllOf(StartsWith("metamodel:source x\n"), HasSubstr("\nauthentication:source x\n")));
  EXPECT_THAT(RunLine("get component com.acme" + sources).out,
              HasSubstr("\nauthentication:component com.acme\n"));
}

TEST(Commands, WithoutSourcesGiveAnEmptyAnswer) {
  const ToolRun tree = RunLine("tree");
  EXPECT_EQ(tree.out, "");
  EXPECT_EQ(tree.err, "zelk-metadata: nothing is loaded; --source PATH loads a file or a folder\n");
  EXPECT_EQ(tree.status, 0);
  EXPECT_EQ(RunLine("tree --json").out, "{\"version\":1,\"entries\":[]}\n");
  EXPECT_EQ(RunLine("search x").status, 3);
  EXPECT_EQ(RunLine("which component x").status, 3);
  EXPECT_EQ(RunLine("usage").status, 3);
}

TEST(Names, CannotControlTheTerminal) {
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

TEST(Outlines, FailedSourceDoesNotHideTheOthers) {
  const std::string bad = " --source " + kDataFolder + "/truncated.json";
  for (const char* line : {"tree", "search acme", "which component com.acme"}) {
    const ToolRun run = RunOnInventory(line + bad);
    EXPECT_THAT(run.out, HasSubstr("com.acme")) << line;
    EXPECT_EQ(run.status, 1) << line;
  }
}

TEST(Which, AnswersForEveryDomainWithTheName) {
  const ToolRun run = RunOnThree("which package com.acme.inventory");
  EXPECT_THAT(run.out, AllOf(HasSubstr("metamodel:package com.acme.inventory\n"),
                             HasSubstr("\n\nauthentication:package com.acme.inventory\n")));
  EXPECT_EQ(run.status, 0);
}

TEST(Get, MissingFormatterIsNotShown) {
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

TEST(Get, CommandNameMayContainADot) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", R"({"cli": [{"type": "command", "path": "a",
    "name": "b.c", "description": "", "node_metadata": {"service_id": "s", "operation_id": "o"}}]})");
  EXPECT_THAT(RunLine("tree --source " + file).out, HasSubstr("command a.b.c\n"));
  EXPECT_EQ(RunLine("get command a b.c --source " + file).status, 0);
  EXPECT_EQ(RunLine("get command a.b.c --source " + file).status, 0);
  EXPECT_EQ(RunLine("get command a.b.d --source " + file).status, 3);
}

TEST(Get, PageLeavesOutEmptyParts) {
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

TEST(Outlines, ReportAFileThatWasRemoved) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", FileText(kDataFolder + "/inventory.json"));
  Zelk::Tool::Host host(Zelk::Tool::Domains());
  host.Load({"a", file});
  std::filesystem::remove(file);
  std::vector<Zelk::Tool::LoadReport> failures;
  const auto watcher = [](std::size_t, std::size_t, const std::string&) {};
  EXPECT_TRUE(host.Outlines(failures, watcher).empty());
  EXPECT_EQ(failures.size(), 1U);
}

TEST(Get, PageOfASourceNamesItsDomain) {
  const ToolRun run = RunLine("get source x --source x=" + kDataFolder + "/inventory.json" +
                              " --source x=" + kDataFolder + "/schemes.json");
  EXPECT_THAT(run.out, AllOf(testing::StartsWith("metamodel:source x\n"),
                             HasSubstr("\nauthentication:source x\n")));
}

TEST(Fingerprint, WithoutASourceIsWrongUsage) {
  const ToolRun run = RunLine("fingerprint");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelk-metadata: nothing is loaded; --source PATH loads a file or a folder\n");
  const ToolRun missing = RunLine("fingerprint --source nope.json");
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.out, "");
  EXPECT_EQ(missing.err, "zelk-metadata: nope.json: No such file or directory\n");
  EXPECT_EQ(RunTool({"shell"}, "fingerprint\n").status, 2);
}

TEST(Get, ServiceOfAuthenticationOnlyHasAPage) {
  const TempFolder folder;
  const std::string file = folder.Write("a.json", R"({"authentication": {"component": {"name": "c",
    "schemes": {"x": {"authenticationScheme": "scheme", "type": "SESSIONLESS"}},
    "services": {"p.only_here": ["x"]}}}})");
  const ToolRun run = RunOnInventory("get service p.only_here --source " + file);
  EXPECT_THAT(run.out, HasSubstr("scheme"));
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Get, SourceOfSeveralDomainsHasAPageInEach) {
  const std::string sources =
      " --source x=" + kDataFolder + "/inventory.json --source x=" + kDataFolder + "/schemes.json";
  const ToolRun page = RunLine("get source x" + sources);
  EXPECT_THAT(page.out, AllOf(HasSubstr("inventory.json"), HasSubstr("schemes.json")));
  const auto json = ParsedJson(RunLine("get source x --json" + sources).out, "records");
  ASSERT_EQ(json.Size(), 2U);
  EXPECT_STREQ(json[0]["domain"].GetString(), "metamodel");
  EXPECT_STREQ(json[1]["domain"].GetString(), "authentication");
}
