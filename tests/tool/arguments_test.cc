#include <algorithm>
#include <sstream>

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
    EXPECT_THAT(run.out, HasSubstr("\n    " + command.name + " "));
    // Wrapped if it is long.
    EXPECT_THAT(run.out, HasSubstr("\n    zelk-metadata " + command.example.substr(0, 40)));
  }
  EXPECT_THAT(run.out, AllOf(HasSubstr("--source [ID=]PATH"), HasSubstr("--output FORMAT"),
                             HasSubstr("--json"), HasSubstr("Exit status:")));
  EXPECT_EQ(run.err, "");
}

TEST(Arguments, HelpOfACommandShowsTheKindsThatItTakesWithTheirIds) {
  const ToolRun get = RunLine("get --help");
  EXPECT_EQ(get.status, 0);
  EXPECT_THAT(get.out, HasSubstr("\n      operation SERVICE OPERATION\n"));
  EXPECT_THAT(get.out, testing::Not(HasSubstr("hidden")));
  EXPECT_THAT(RunLine("list --help").out, HasSubstr("\n      model, in a resource\n"));
  EXPECT_THAT(RunLine("fingerprint --help").out, HasSubstr("\n      source [SOURCE]\n"));
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
    EXPECT_THAT(run.out, HasSubstr("Example:\n    zelk-metadata " + command.example.substr(0, 40)));
    for (const auto& operand : command.operands) {
      EXPECT_THAT(run.out, HasSubstr("\n    " + operand.name)) << command.name;
    }
    for (const auto& option : command.options) {
      EXPECT_THAT(run.out, HasSubstr("\n    --" + option.name)) << command.name;
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

TEST(Arguments, FlagWithAValueIsWrongUsage) {
  const std::vector<std::pair<std::string, std::string>> rows{
      {"list components --json=x", "--json"},
      {"list components --json=false", "--json"},
      {"--json= list components", "--json"},
      {"search acme --limit 1 --regex=1", "--regex"},
      {"list components --source --json=x --no-pager=3", "--no-pager"},
      {"list --help=x", "--help"},
      {"--version=1", "--version"}};
  for (const auto& [line, option] : rows) {
    const ToolRun run = RunLine(line);
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_EQ(run.err, "zelk-metadata: option '" + option + "' takes no value\n") << line;
    EXPECT_EQ(run.out, "") << line;
  }
}

TEST(Arguments, OptionHasOneValue) {
  const auto complaint = [](const std::string& line) {
    const ToolRun run = RunLine(line);
    EXPECT_EQ(run.status, 2) << line;
    return run.err;
  };
  EXPECT_EQ(complaint("tree --depth"), "zelk-metadata: option '--depth' needs a value\n");
  EXPECT_EQ(complaint("list --output"), "zelk-metadata: option '--output' needs a value\n");
  EXPECT_EQ(complaint("--source"), "zelk-metadata: option '--source' needs a value\n");
  EXPECT_EQ(complaint("lint a.json --fail-on note --fail-on error"),
            "zelk-metadata: option '--fail-on' is given more than once\n");
}

TEST(Arguments, WordThatOnlyLooksLikeAFlagWithAValueIsAnOperand) {
  EXPECT_EQ(RunLine("get component -- --json=x").err,
            "zelk-metadata: Metamodel component not found: --json=x\n");
  EXPECT_EQ(RunOnInventory("list components --output --json=x").err,
            "zelk-metadata: --output of list is one of table, plain, json, not '--json=x'\n");
  EXPECT_THAT(RunOnInventory("list components --jsn=x").err, HasSubstr("unknown option '--jsn=x'"));
}

TEST(Arguments, JsonIsAnOptionOfCommandsWithJsonOnly) {
  for (const Command& command : ProgramLanguage().commands) {
    const bool has_json =
        std::find(command.outputs.begin(), command.outputs.end(), "json") != command.outputs.end();
    const bool is_offered =
        RunLine(command.name + " --help").out.find("\n    --json ") != std::string::npos;
    EXPECT_EQ(is_offered, has_json) << command.name;
  }
  const ToolRun run = RunLine("help --json");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: --output of help is one of text, not 'json'\n");
}

TEST(Arguments, HelpOfACommandShowsTheSharedOptions) {
  const std::string help = RunLine("list --help").out;
  EXPECT_THAT(help, AllOf(HasSubstr("\n    --source [ID=]PATH  "), HasSubstr("\n    --no-pager"),
                          HasSubstr("\n      command, in a namespace\n")));
  EXPECT_EQ(RunLine("help list").out, help);
  EXPECT_EQ(RunLine("help").out, RunLine("--help").out);
  EXPECT_EQ(RunLine("help lsit").err,
            "zelk-metadata: unknown command 'lsit'; did you mean list?\n");
  EXPECT_EQ(RunLine("help lsit").status, 3);
}

TEST(Arguments, HelpIsNeverWiderThanAHundredColumnsInAPipe) {
  for (const Command& command : ProgramLanguage().commands) {
    std::istringstream help(RunLine(command.name + " --help").out);
    for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 100U) << line;
  }
}

TEST(Arguments, VersionIsGivenAlone) {
  for (const char* line : {"--version extra", "--version list components", "--version --json"}) {
    const ToolRun run = RunLine(line);
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_EQ(run.err, "zelk-metadata: --version is given alone\n") << line;
    EXPECT_EQ(run.out, "") << line;
  }
}

TEST(Arguments, LastOfRepeatedOutputsCounts) {
  EXPECT_EQ(RunOnInventory("list components --output json --output plain").out, "com.acme\n");
  EXPECT_EQ(RunOnInventory("list components --output plain --output json").out,
            RunOnInventory("list components --json").out);
}

TEST(Arguments, ColorIsOneOfThreeWords) {
  EXPECT_EQ(RunOnInventory("list components --color sometimes").err,
            "zelk-metadata: --color is one of auto, always, never, not 'sometimes'\n");
  EXPECT_EQ(RunOnInventory("get component com.acme --color auto").out,
            RunOnInventory("get component com.acme --color never").out);
}

TEST(Arguments, ColorsCanBeForcedIntoAPipe) {
  EXPECT_THAT(RunOnInventory("get component com.acme --color always").out,
              testing::StartsWith("\x1b[1mcomponent com.acme\x1b[0m\n"));
  EXPECT_THAT(RunOnInventory("get component nope --color always").err,
              testing::StartsWith("\x1b[1;31mzelk-metadata:\x1b[0m "));
}

TEST(Arguments, NumberThatIsNoneIsShownAsItWasTyped) {
  EXPECT_THAT(RunOnInventory("tree --depth [1]").err, HasSubstr("'[1]' is not a whole number"));
}

TEST(Arguments, KindThatIsNotTakenNamesThoseThatAre) {
  const std::string kinds =
      "component, package, service, operation, structure, enumeration, source, namespace, command";
  EXPECT_EQ(RunLine("get thing x").err,
            "zelk-metadata: unknown kind 'thing'; the kinds are " + kinds + "\n");
  EXPECT_EQ(RunLine("get model x").err,
            "zelk-metadata: 'get' does not take the kind 'model'; it takes " + kinds + "\n");
}

TEST(Arguments, UnknownShellNamesTheShells) {
  EXPECT_EQ(RunLine("completion tcsh").err,
            "zelk-metadata: unknown shell 'tcsh'; the shells are bash, fish, zsh\n");
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
