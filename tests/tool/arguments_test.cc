#include <gmock/gmock.h>

#include "commands/table.h"
#include "tool/tool_run.h"

using testing::AllOf;
using testing::HasSubstr;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunTool;
using Zelk::Testing::ToolRun;
using Zelk::Tool::Command;
using Zelk::Tool::ProgramLanguage;

TEST(Arguments, VersionIsThatOfTheProject) {
  const ToolRun run = RunLine("--version");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "zelk-metadata " ZELK_METADATA_VERSION "\n");
  EXPECT_EQ(run.err, "");
}

TEST(Arguments, HelpNamesTheCommandsTheOptionsAndTheExitStatuses) {
  const ToolRun run = RunLine("--help");
  EXPECT_EQ(run.status, 0);
  for (const Command& command : ProgramLanguage().commands) {
    EXPECT_THAT(run.out, HasSubstr("\n  " + command.name + " "));
    EXPECT_THAT(run.out, HasSubstr("\n  zelk-metadata " + command.example + "\n"));
  }
  EXPECT_THAT(run.out, AllOf(HasSubstr("--source [ID=]PATH"), HasSubstr("--output FORMAT"),
                             HasSubstr("--json"), HasSubstr("Exit status:")));
  EXPECT_EQ(run.err, "");
}

TEST(Arguments, HelpOfACommandShowsTheKindsThatItTakesWithTheirIds) {
  const ToolRun get = RunLine("get --help");
  EXPECT_EQ(get.status, 0);
  EXPECT_THAT(get.out, HasSubstr("\n  operation SERVICE OPERATION\n"));
  EXPECT_THAT(get.out, testing::Not(HasSubstr("hidden")));
  EXPECT_THAT(RunLine("list --help").out, HasSubstr("\n  model, in a resource\n"));
  EXPECT_THAT(RunLine("fingerprint --help").out, HasSubstr("\n  source [SOURCE]\n"));
}

TEST(Arguments, OptionsMayPrecedeOrFollowTheCommand) {
  const std::string source = " --source " + kDataFolder + "/inventory.json ";
  const std::string expected = RunOnInventory("list components --json").out;
  for (const std::string& line :
       {source + "--json list components", "list components --json" + source,
        source + "list components --json", "--json list" + source + "components"}) {
    EXPECT_EQ(RunLine(line).out, expected) << line;
  }
}

TEST(Arguments, SourcesBeforeAndAfterTheCommandAreAllLoaded) {
  const ToolRun run = RunLine("--source a=" + kDataFolder + "/inventory.json list sources" +
                              " --source b=" + kDataFolder + "/network.json");
  EXPECT_EQ(run.out, "a\nb\n");
}

TEST(Arguments, KindsMayBePluralAndHaveADomain) {
  for (const char* kind :
       {"component", "components", "metamodel:component", "metamodel:components"}) {
    EXPECT_EQ(RunOnInventory("list " + std::string(kind)).out, "com.acme\n") << kind;
  }
}

TEST(Arguments, IdMayBeTheNameOfACommand) {
  const ToolRun run = RunOnInventory("get operation com.acme.inventory.machines list");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, testing::StartsWith("list(filter: "));
}

TEST(Arguments, IdAfterADoubleDashMayLookLikeAnOption) {
  const ToolRun run = RunOnInventory("get component -- --json");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("component not found: --source"))
      << "the source must not be taken for an option either";
  EXPECT_EQ(RunLine("get component -- --json").err,
            "zelk-metadata: Metamodel component not found: --json\n");
}

TEST(Arguments, BracketsAndCommasBelongToTheName) {
  EXPECT_EQ(RunLine("check [a,b]").out, "[a,b]: error: No such file or directory\n");
  EXPECT_EQ(RunLine("get component [x]").err,
            "zelk-metadata: Metamodel component not found: [x]\n");
  EXPECT_EQ(RunLine("list components --source [a,b]").err,
            "zelk-metadata: [a,b]: No such file or directory\n");
}

TEST(Arguments, EmptyIdIsAnId) {
  EXPECT_EQ(RunTool({"get", "component", ""}).err,
            "zelk-metadata: Metamodel component not found: \n");
}

TEST(Arguments, UnknownKindIsReportedBeforeLoading) {
  const ToolRun run = RunLine("list gadgets --source missing.json");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, testing::Not(HasSubstr("missing.json")));
}

TEST(Arguments, HelpOfEveryCommandHasOperandsOptionsAndExample) {
  for (const Command& command : ProgramLanguage().commands) {
    const ToolRun run = RunLine(command.name + " --help");
    EXPECT_EQ(run.status, 0) << command.name;
    EXPECT_THAT(run.out, HasSubstr("Example: zelk-metadata " + command.example));
    for (const auto& operand : command.operands) {
      EXPECT_THAT(run.out, HasSubstr("\n  " + operand.name)) << command.name;
    }
    for (const auto& option : command.options) {
      EXPECT_THAT(run.out, HasSubstr("\n  --" + option.name)) << command.name;
    }
  }
}

TEST(Arguments, OutputMustBeKnownToTheCommand) {
  for (const Command& command : ProgramLanguage().commands) {
    const std::string& name = command.name;
    std::vector<std::string> line{name, "--output", "poem"};
    if (!command.operands.empty()) line.emplace_back("source");
    const ToolRun run = RunTool(line);
    EXPECT_EQ(run.status, 2) << name;
    EXPECT_THAT(run.err, HasSubstr("--output of " + name + " is one of ")) << name;
    EXPECT_THAT(run.err, HasSubstr(", not 'poem'")) << name;
  }
}

TEST(Arguments, JsonIsAShortFormOfOutputJson) {
  const std::string json = RunOnInventory("list components --json").out;
  EXPECT_EQ(RunOnInventory("list components --output json").out, json);
  EXPECT_EQ(RunOnInventory("list components --json --output json").out, json);
  const ToolRun run = RunOnInventory("list components --json --output plain");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: --json and --output plain contradict each other\n");
}

TEST(Arguments, DepthIsANumber) {
  const ToolRun run = RunOnInventory("tree --depth deep");
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--depth"));
  EXPECT_EQ(RunOnInventory("tree --depth -1").status, 2);
}

TEST(Arguments, SurplusWordIsAnError) {
  const ToolRun run = RunOnInventory("tree com.acme components");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: unexpected argument 'components'; try tree --help\n");
}

TEST(Arguments, NumbersAreDigitsThatFit) {
  for (const char* number : {"", "1234567890123456789", "-1", "1x"}) {
    EXPECT_EQ(RunTool({"tree", "--depth", number}).status, 2) << number;
  }
}

TEST(Arguments, LeadingControlCharacterBelongsToTheName) {
  const ToolRun run =
      RunTool({"get", "component", "\x01x", "--source", kDataFolder + "/inventory.json"});
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.err, HasSubstr("\\x01x"));
}
