#include <sstream>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "complete/scripts.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// What the completion scripts ask the program.

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Package;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::Command;
using Zelk::Tool::ProgramLanguage;

namespace {

using Lines = std::vector<std::string>;

const std::string kInventory = "--source " + kDataFolder + "/inventory.json ";

/// What the program answers for the words of a line, the last one being typed; a line that ends
/// in a blank has nothing of it yet.
Lines Asked(const std::string& line) {
  Lines args = Zelk::Testing::Words("complete -- " + line);
  if (line.empty() || line.back() == ' ') args.emplace_back();
  const ToolRun run = RunTool(args);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  Lines lines;
  std::istringstream out(run.out);
  for (std::string answer; std::getline(out, answer);) lines.push_back(answer);
  return lines;
}

/// The choices without their meanings.
Lines Choices(const std::string& line) {
  Lines lines = Asked(line);
  EXPECT_EQ(lines.at(0), "words") << line;
  lines.erase(lines.begin());
  for (std::string& choice : lines) choice.erase(choice.find('\t'));
  return lines;
}

}  // namespace

TEST(Complete, OffersEveryCommandWithItsSummary) {
  Lines expected{"words"};
  for (const Command& command : ProgramLanguage().commands) {
    expected.push_back(command.name + "\t" + command.summary);
  }
  EXPECT_EQ(Asked(""), expected);
  EXPECT_THAT(Choices("--json fi"), ElementsAre("fingerprint"));
}

TEST(Complete, OffersEveryAllowedOption) {
  for (const Command& command : ProgramLanguage().commands) {
    Lines expected;
    for (const auto& option : command.options) expected.push_back("--" + option.name);
    for (const auto& option : ProgramLanguage().options) {
      if (command.Takes(option)) expected.push_back("--" + option.name);
    }
    expected.emplace_back("--help");
    EXPECT_EQ(Choices(command.name + " -"), expected);
    EXPECT_EQ(Choices(command.name + " --"), expected);
  }
  EXPECT_THAT(Choices("--v"), ElementsAre("--version"));
  EXPECT_THAT(Choices("list -- --"), ElementsAre()) << "after -- nothing is an option";
}

TEST(Complete, OffersOptionValuesInOneWordOrTwo) {
  for (const Command& command : ProgramLanguage().commands) {
    EXPECT_EQ(Choices(command.name + " --output "), command.outputs);
  }
  EXPECT_THAT(Choices("check --output=g"), ElementsAre("--output=github"));
  EXPECT_THAT(Choices("--output "), IsSupersetOf({"table", "plain", "json", "text", "github"}));
  EXPECT_THAT(Choices("tree --depth "), ElementsAre());
  EXPECT_THAT(Choices("tree --color "), ElementsAre("auto", "always", "never"));
  EXPECT_THAT(Choices("tree --json="), ElementsAre()) << "a flag has no value";
  EXPECT_THAT(Choices("tree --nope="), ElementsAre());
}

TEST(Complete, OffersTheKindsThatTheCommandTakesWithTheirIds) {
  EXPECT_THAT(Choices("list h"), ElementsAre("hidden"));
  EXPECT_THAT(Choices("get h"), ElementsAre());
  EXPECT_THAT(Choices("fingerprint "), ElementsAre("component", "source", "namespace", "command"));
  EXPECT_THAT(Asked("get op"), ElementsAre("words", "operation\twith SERVICE OPERATION"));
  EXPECT_THAT(Choices("which authentication:s"), ElementsAre("authentication:service"));
}

TEST(Complete, OffersTheNamesOfTheSourcesBeforeIt) {
  EXPECT_THAT(Choices(kInventory + "get component "), ElementsAre("com.acme"));
  EXPECT_THAT(Choices("get components " + kInventory), ElementsAre("com.acme"));
  EXPECT_THAT(Choices("get component com.acme " + kInventory), ElementsAre("com.acme"))
      << "several may be asked for";
  EXPECT_THAT(Choices("fingerprint component com.acme " + kInventory), ElementsAre());
  EXPECT_THAT(Choices("get operation " + kInventory + "com.acme.inventory.m"),
              ElementsAre("com.acme.inventory.machines"));
  EXPECT_THAT(Choices("get component "), ElementsAre()) << "nothing is loaded";
  EXPECT_THAT(Choices("get gadget " + kInventory), ElementsAre());
  EXPECT_THAT(Choices("get hidden " + kInventory), ElementsAre()) << "it can be listed only";
  EXPECT_THAT(Choices("list commands --source " + kDataFolder + "/commands.json "),
              ElementsAre(".", "acme", "acme.machines", "acme.machines.list", "ping"))
      << "namespaces list their commands";
  EXPECT_THAT(Choices("-x --source=" + kDataFolder + "/inventory.json get component "),
              ElementsAre("com.acme"))
      << "the source in one word, after an option that does not exist";
}

TEST(Complete, OffersANameOfSeveralDomainsOnce) {
  EXPECT_THAT(Choices("get component --source " ZELK_SOURCE_DIR "/metadata "),
              ElementsAre("com.orvane.zelk.metadata"));
}

TEST(Complete, OffersOnlyTheOperationsOfTheServiceBeforeIt) {
  const std::string machines = "com.acme.inventory.machines ";
  const Lines operations = Choices("get operation " + kInventory + machines);
  EXPECT_THAT(operations, IsSupersetOf({"get", "list", "remove"}));
  EXPECT_EQ(Choices("get operation " + kInventory + machines + "get " + machines), operations)
      << "a second pair";
  EXPECT_EQ(Choices("get operation " + kInventory + "com.acme.inventory.machines.get " + machines),
            operations)
      << "an operation in one word before it";
}

TEST(Complete, OffersNoServicesAfterAServiceThatOneDomainKnows) {
  EXPECT_THAT(Choices("get operation --source " ZELK_SOURCE_DIR
                      "/metadata com.orvane.zelk.metadata.cli.command "),
              ElementsAre("fingerprint", "get", "list"));
}

TEST(Complete, OffersTheNamesOfAClientPartByPart) {
  const std::string usage = "usage --source " ZELK_SOURCE_DIR "/metadata/cli ";
  EXPECT_THAT(Choices(usage), ElementsAre("metadata"));
  EXPECT_THAT(Choices(usage + "metadata "), ElementsAre("authentication", "cli", "metamodel"));
  EXPECT_THAT(Choices(usage + "metadata.cli.co"),
              IsSupersetOf({"metadata.cli.command", "metadata.cli.command.list"}));
  EXPECT_THAT(Choices(usage + "nope "), ElementsAre());
}

TEST(Complete, OffersTheIdsOfMessagesWithTheirTexts) {
  EXPECT_THAT(
      Asked("explain zelk.metadata.json.missing"),
      ElementsAre("words", "zelk.metadata.json.missing.field\tJson parse missing field: %1%"));
}

TEST(Complete, OffersRulesAndGroupsOfLint) {
  EXPECT_THAT(Choices("lint --only "), IsSupersetOf({"loader", "cli"}));
  EXPECT_THAT(Choices("lint --rule unknown-k"), ElementsAre("unknown-key"));
  EXPECT_THAT(Choices("lint --except=unknown-k"), ElementsAre("--except=unknown-key"));
  EXPECT_THAT(Choices("lint --fail-on "), ElementsAre("error", "warning", "note", "never"));
  EXPECT_THAT(Asked("explain unknown-k"),
              ElementsAre("words", "unknown-key\tA key that is not read"));
}

TEST(Complete, OffersTheSupportedShells) {
  EXPECT_EQ(Choices("completion "), Zelk::Tool::Complete::CompletedShells());
}

TEST(Complete, LeavesPathsToTheShell) {
  EXPECT_THAT(Asked("check some"), ElementsAre("path"));
  EXPECT_THAT(Asked("list --source "), ElementsAre("source"));
  EXPECT_THAT(Asked("list --source=a=b"), ElementsAre("source"));
}

TEST(Complete, OffersNothingWhereNothingIsKnown) {
  for (const char* line : {"search a", "search a b", "tree a", "nope ", "nope --nope a", "--nope=a",
                           "completion bash b", "get component -- --"}) {
    EXPECT_THAT(Choices(line), ElementsAre()) << line;
  }
  EXPECT_EQ(RunTool({"complete", "--"}).status, 0);
}

TEST(Complete, IsSilentAboutSourcesThatFail) {
  const std::string broken = "--source " + kDataFolder + "/syntax_error.json ";
  EXPECT_THAT(Choices("get component --source missing.json " + broken + kInventory),
              ElementsAre("com.acme"));
}

TEST(Complete, DoesNotReadInputPipesOrLargeFiles) {
  const TempFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe.json").c_str(), 0600), 0);
  const std::string inventory = Zelk::Testing::FileText(kDataFolder + "/inventory.json");
  folder.Write("large.json", inventory + std::string(9U << 20U, ' '));
  const ToolRun run =
      RunTool({"complete", "--", "--source", "-", "--source", folder.Path("pipe.json"), "--source",
               folder.Path("large.json"), "--source", folder.Path(""), "list", "source", ""},
              inventory);
  EXPECT_EQ(run.out, "words\n");
}

TEST(Complete, ReadsNoMoreOfAllSourcesTogetherThanOfOne) {
  const TempFolder folder;
  const auto write = [&folder](const std::string& name, std::size_t size) {
    folder.Write(name + ".json", MetamodelFile(Component(name)) + std::string(size, ' '));
    return "--source " + folder.Path(name + ".json ");
  };
  const std::string line = "get component " + write("a", 5U << 20U) + write("b", 5U << 20U);
  EXPECT_THAT(Choices(line), ElementsAre("a"));
  EXPECT_THAT(Choices(line + write("c", 0)), ElementsAre("a", "c")) << "for which there is room";
}

TEST(Complete, DoesNotSearchLargeFolders) {
  const TempFolder crowd;
  for (int i = 0; i < 4096; ++i) crowd.Write(std::to_string(i), "");
  const TempFolder folder;
  const std::string file = folder.Write("a.json", MetamodelFile(Component("a")));
  const std::string in_folder = "--source " + folder.Path("") + " ";
  const std::string in_crowd = "--source " + crowd.Path("") + " ";
  EXPECT_THAT(Choices("get component " + in_folder + in_crowd), ElementsAre("a"));
  EXPECT_THAT(Choices("get component " + in_crowd + in_folder), ElementsAre());
  EXPECT_THAT(Choices("get component " + in_crowd + "--source " + file + " "), ElementsAre("a"));
}

TEST(Complete, OffersNamesLikeOptionsOnlyAfterTwoDashes) {
  const TempFolder folder;
  const std::string names = MetamodelFile(Component("c", {Package("-dash"), Package("--output")}));
  const std::string line = "get package --source " + folder.Write("dash.json", names) + " ";
  EXPECT_THAT(Choices(line), ElementsAre());
  EXPECT_THAT(Choices(line + "-- "), ElementsAre("--output", "-dash"));
  EXPECT_THAT(Choices(line + "-- -d"), ElementsAre("-dash"));
}

TEST(Complete, OffersNoCommandAfterTwoDashes) {
  EXPECT_EQ(RunLine("-- list component").status, 2);
  EXPECT_THAT(Choices("-- "), ElementsAre());
  EXPECT_THAT(Choices("-- list "), ElementsAre());
}

TEST(Complete, OffersNoWordThatATerminalCannotShow) {
  const TempFolder folder;
  const std::string path = folder.Write("strange.json", MetamodelFile(Component("a\\nb")));
  EXPECT_THAT(RunLine("list component --source " + path).out, HasSubstr("x0a"));
  EXPECT_THAT(Choices("get component --source " + path + " "), ElementsAre());
}

TEST(Completion, IsPrintedForEverySupportedShell) {
  for (const std::string& shell : Zelk::Tool::Complete::CompletedShells()) {
    const ToolRun run = RunLine("completion " + shell);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, HasSubstr("Completion of zelk-metadata for " + shell));
    EXPECT_THAT(run.out, HasSubstr(" complete -- ")) << "it asks the program";
  }
  EXPECT_THAT(RunLine("completion zsh").out, StartsWith("#compdef zelk-metadata\n"))
      << "which the shell looks for in the files of its folders";
  EXPECT_EQ(RunLine("completion fsh").status, 2);
  EXPECT_EQ(RunLine("completion fsh").err,
            "zelk-metadata: unknown shell 'fsh'; the shells are bash, fish, zsh\n");
}

TEST(Complete, OffersNamesAndWhatTheyCanBeInForList) {
  EXPECT_THAT(Choices(kInventory + "list services com.acme.inventory"),
              ElementsAre("com.acme.inventory", "com.acme.inventory.folders",
                          "com.acme.inventory.machines"));
  EXPECT_THAT(
      Choices(kInventory + "list operations x com.acme.inventory.machines"),
      ElementsAre("com.acme.inventory.machines", "com.acme.inventory.machines.get",
                  "com.acme.inventory.machines.list", "com.acme.inventory.machines.remove"));
}

TEST(Complete, OffersTheIdsOfTrees) {
  EXPECT_THAT(Choices(kInventory + "tree com.acme.inventory.f"),
              ElementsAre("com.acme.inventory.folders"));
  EXPECT_THAT(Choices(kInventory + "tree com.acme.inventory.machines.l"),
              ElementsAre("com.acme.inventory.machines.list"));
}

TEST(Complete, OffersTheKindsAndPartsThatAreSearched) {
  EXPECT_THAT(Choices("search x --kind c"), ElementsAre("component", "constant", "command"));
  EXPECT_THAT(Choices("search x --kind=cli:"),
              ElementsAre("--kind=cli:namespace", "--kind=cli:command", "--kind=cli:option"));
}

TEST(Complete, OffersTheKindsAndIdsThatAreUsed) {
  EXPECT_THAT(Choices("uses s"), ElementsAre("service", "structure", "scheme"));
  EXPECT_THAT(Choices(kInventory + "uses structure com.acme.inventory.d"),
              ElementsAre("com.acme.inventory.disk"));
  EXPECT_THAT(Choices(kInventory + "uses operation com.acme.inventory.machines l"),
              ElementsAre("list"));
}
