#include <string>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// What refers to a thing, with the places.

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Operation;
using Zelk::Testing::Package;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::Resource;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::Service;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

/// The answer with the names of files without their folder.
std::string Uses(const std::string& words) {
  std::string out = RunOnThree("uses " + words).out;
  const std::string folder = kDataFolder + "/";
  for (std::size_t at = out.find(folder); at != std::string::npos; at = out.find(folder)) {
    out.erase(at, folder.size());
  }
  return out;
}

}  // namespace

TEST(Uses, OfAStructureAreTypesErrorsAndOutputs) {
  EXPECT_EQ(Uses("structure com.acme.inventory.machine"),
            "metamodel:operation\tcom.acme.inventory.machines.get\tresult\t"
            "inventory.json:344:49\n"
            "cli:command\tacme.machines.list\toutput\tcommands.json:44:29\n");
  EXPECT_EQ(
      Uses("structures com.acme.inventory.disk"),
      "metamodel:structure\tcom.acme.inventory.machine\tfield disks\tinventory.json:142:51\n");
  EXPECT_EQ(
      Uses("structure com.acme.inventory.busy"),
      "metamodel:operation\tcom.acme.inventory.machines.remove\terror\tinventory.json:398:49\n");
  EXPECT_EQ(Uses("structure com.acme.inventory.machines.filter"),
            "metamodel:operation\tcom.acme.inventory.machines.list\tparameter filter\t"
            "inventory.json:288:53\n");
}

TEST(Uses, OfAStructureThatIsNotLoadedAreFound) {
  EXPECT_EQ(
      Uses("structure com.orvane.zelk.std.errors.not_found"),
      "metamodel:operation\tcom.acme.inventory.machines.get\terror\tinventory.json:349:49\n"
      "metamodel:operation\tcom.acme.inventory.machines.remove\terror\tinventory.json:394:49\n");
}

TEST(Uses, OfAnEnumerationAreTypes) {
  EXPECT_EQ(
      Uses("enumeration com.acme.inventory.machine.power"),
      "metamodel:structure\tcom.acme.inventory.machine\tfield power\tinventory.json:122:47\n");
  EXPECT_EQ(Uses("enumeration Power"),
            "cli:command\tacme.machines.list\toption power\tcommands.json:38:21\n");
}

TEST(Uses, OfAResourceAreAnnotations) {
  EXPECT_EQ(Uses("resource com.acme.inventory.machine"),
            "metamodel:structure\tcom.acme.inventory.machine\tresource of field id\t"
            "inventory.json:98:32\n"
            "metamodel:operation\tcom.acme.inventory.machines.list\tresource of result\t"
            "inventory.json:297:34\n"
            "metamodel:operation\tcom.acme.inventory.machines.get\t"
            "resource of parameter machine_id\tinventory.json:329:36\n"
            "metamodel:operation\tcom.acme.inventory.machines.remove\t"
            "resource of parameter machine_id\tinventory.json:366:36\n");
}

TEST(Uses, AnnotationsOfAThingItselfAreItsUses) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "a.json",
      MetamodelFile(Component(
          "c", {Package("p", {Service("s", {Operation("o").Annotated(Resource("r"))})})})));
  EXPECT_THAT(RunLine("uses resource r --source " + file).out,
              StartsWith("metamodel:operation\ts.o\tresource\t" + file + ":"));
}

TEST(Uses, OfAnOperationAreCommandsAndLists) {
  const std::string uses =
      "authentication:operation\tcom.acme.inventory.machines.list\tlist of schemes\t"
      "schemes.json:24:9\n"
      "cli:command\tacme.machines.list\tcall\tcommands.json:16:25\n";
  EXPECT_EQ(Uses("operation com.acme.inventory.machines.list"), uses);
  EXPECT_EQ(Uses("operation com.acme.inventory.machines list"), uses);
}

TEST(Uses, OfAServiceAreCommandsAndLists) {
  EXPECT_EQ(Uses("service com.acme.inventory.machines"),
            "authentication:service\tcom.acme.inventory.machines\tlist of schemes\t"
            "schemes.json:21:9\n"
            "cli:command\tacme.machines.list\tcall\tcommands.json:15:23\n"
            "cli:command\tping\tcall\tcommands.json:60:23\n");
  EXPECT_EQ(Uses("service com.acme.session"),
            "authentication:scheme\tcom.acme.badge\tsession manager\tschemes.json:9:29\n");
}

TEST(Uses, OfPackagesComponentsAndSchemesAreLists) {
  EXPECT_EQ(Uses("package com.acme.visitors"),
            "authentication:package\tcom.acme.visitors\tlist of schemes\tschemes.json:18:9\n");
  EXPECT_EQ(Uses("component com.acme"),
            "authentication:component\tcom.acme\tschemes\tschemes.json:4:15\n");
  EXPECT_EQ(
      Uses("scheme badge"),
      "authentication:operation\tcom.acme.inventory.folders.remove\tscheme\tschemes.json:25:47\n"
      "authentication:service\tcom.acme.inventory.machines\tscheme\tschemes.json:21:41\n"
      "authentication:package\tcom.acme.inventory\tscheme\tschemes.json:17:32\n");
}

TEST(Uses, JsonHasThePlaces) {
  const auto uses =
      ParsedJson(RunOnThree("uses operation com.acme.inventory.machines.list --json").out, "uses");
  ASSERT_EQ(uses.Size(), 2U);
  EXPECT_STREQ(uses[1]["domain"].GetString(), "cli");
  EXPECT_STREQ(uses[1]["kind"].GetString(), "command");
  EXPECT_STREQ(uses[1]["id"].GetString(), "acme.machines.list");
  EXPECT_STREQ(uses[1]["what"].GetString(), "call");
  EXPECT_EQ(uses[1]["file"].GetString(), kDataFolder + "/commands.json");
  EXPECT_EQ(uses[1]["line"].GetInt(), 16);
  EXPECT_EQ(uses[1]["column"].GetInt(), 25);
}

TEST(Uses, ThingThatNothingRefersToIsNoError) {
  const ToolRun run = RunOnThree("uses enumeration com.acme.inventory.layer --json");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "{\"version\":1,\"uses\":[]}\n");
  EXPECT_EQ(run.err,
            "zelk-metadata: nothing refers to the enumeration 'com.acme.inventory.layer'\n");
  EXPECT_EQ(RunOnThree("uses enumeration com.acme.inventory.layer --output table").out, "")
      << "no table without rows";
}

TEST(Uses, UnknownThingsAreNotFoundWithNearNames) {
  const auto error_of = [](const std::string& words) {
    const ToolRun run = RunOnThree("uses " + words);
    EXPECT_EQ(run.status, 3) << words;
    EXPECT_EQ(run.out, "") << words;
    return run.err;
  };
  EXPECT_EQ(error_of("structure com.acme.inventory.disc"),
            "zelk-metadata: no structure has the id 'com.acme.inventory.disc'; did you mean "
            "com.acme.inventory.disk?\n");
  EXPECT_EQ(error_of("operation com.acme.inventory.machines.lst"),
            "zelk-metadata: no operation has the id 'com.acme.inventory.machines.lst'; did you "
            "mean com.acme.inventory.machines.list?\n");
  EXPECT_EQ(error_of("operation list"),
            "zelk-metadata: no operation has the id 'list'; did you mean "
            "com.acme.inventory.machines.list?\n");
  EXPECT_EQ(error_of("scheme bagde"),
            "zelk-metadata: no scheme has the id 'bagde'; did you mean badge?\n");
  EXPECT_THAT(error_of("structur x"),
              HasSubstr("unknown kind 'structur'; the kinds are component, package, service, "
                        "operation, structure, enumeration, resource, scheme; did you mean "
                        "structure?\n"));
}

TEST(Uses, NoIdOrMoreThanOneIsWrongUsage) {
  EXPECT_EQ(RunLine("uses structure").err, "zelk-metadata: ID is required\n");
  EXPECT_EQ(RunLine("uses structure a b").err, "zelk-metadata: unexpected argument 'b'\n");
  EXPECT_EQ(RunLine("uses operation a b c").status, 2);
}

TEST(Uses, BrokenFilesAreReportedAndTheOthersRead) {
  const ToolRun run = RunLine("uses structure com.acme.inventory.busy --source " + kDataFolder +
                              "/inventory.json --source " + kDataFolder + "/truncated.json");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("com.acme.inventory.machines.remove\terror\t"));
  EXPECT_THAT(run.err, HasSubstr("truncated.json"));
}

TEST(Uses, WorksInASession) {
  const ToolRun run = Zelk::Testing::RunTool({"shell", "--source", kDataFolder + "/inventory.json"},
                                             "uses structure com.acme.inventory.disk\n");
  EXPECT_THAT(run.out, HasSubstr("com.acme.inventory.machine\tfield disks\t"));
}
