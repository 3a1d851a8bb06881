#include <csignal>
#include <filesystem>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <rapidjson/document.h>

#include "commands/table.h"
#include "host/interrupt.h"
#include "shell/session.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/shell_run.h"
#include "tool/tool_run.h"

// Sessions without a terminal: lines in, answers out.

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Package;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::ExitStatus;
using Zelk::Tool::Complete::Choice;
using Zelk::Tool::Shell::LineCompletion;
using Zelk::Tool::Shell::Session;

namespace {

const std::string kInventory = kDataFolder + "/inventory.json";
const std::string kNetwork = kDataFolder + "/network.json";

ToolRun RunScript(const std::string& lines) {
  return RunTool({"shell"}, lines);
}

/// A session whose answers are looked at line by line.
class Talk {
 public:
  /// What the line printed; the status is that of the line.
  ToolRun Say(const std::string& line) {
    out_.str("");
    err_.str("");
    const ExitStatus status = session_.Run(line);
    return {static_cast<int>(status), out_.str(), err_.str()};
  }

  LineCompletion Complete(const std::string& line) const { return session_.Complete(line); }

  bool IsOver() const { return session_.HasEnded(); }

 private:
  std::istringstream in_;
  std::ostringstream out_;
  std::ostringstream err_;
  Session session_{Zelk::Tool::SessionLanguage(), {in_, out_, err_}};
};

std::vector<std::string> WordsOf(const LineCompletion& completion) {
  std::vector<std::string> words;
  for (const Choice& choice : completion.choices) words.push_back(choice.word);
  return words;
}

}  // namespace

TEST(Shell, UsesSourcesOfTheCommandLineAndOfItsLines) {
  const ToolRun run = RunTool({"shell", "--source", kNetwork},
                              "list components\ncreate own=" + kInventory + "\nlist sources\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "com.acme.network\nnetwork\nown\n");
  EXPECT_EQ(run.err, "");
}

TEST(Shell, AnswersAsTheProgramDoes) {
  for (const std::string line :
       {"list operations com.acme.inventory.machines",
        "get operation com.acme.inventory.machines get", "fingerprint", "tree", "search machine",
        "which component com.acme", "get component com.acme --json", "tree --output json",
        "explain zelk.metadata.json.missing.field"}) {
    const ToolRun alone = Zelk::Testing::RunOnInventory(line);
    const ToolRun run = RunScript("create " + kInventory + "\n" + line + "\n");
    EXPECT_EQ(run.out, alone.out) << line;
    EXPECT_EQ(run.err, alone.err) << line;
    EXPECT_EQ(run.status, alone.status) << line;
  }
}

TEST(Shell, OutputIsForLinesThatHaveNone) {
  const std::string lines = "list sources\nlist sources --output plain\n";
  const std::string json = RunTool({"list", "sources", "--json", "--source", kNetwork}).out;
  for (const std::vector<std::string>& options :
       {std::vector<std::string>{"--json"}, {"--output", "json"}}) {
    std::vector<std::string> args{"shell", "--source", kNetwork};
    args.insert(args.end(), options.begin(), options.end());
    EXPECT_EQ(RunTool(args, lines).out, json + "network\n");
  }
  EXPECT_EQ(RunTool({"shell", "--output", "table", "--source", kNetwork}, lines).out,
            "NAME\nnetwork\nnetwork\n");
  EXPECT_THAT(RunTool({"shell", "--output", "table"}, "explain nope\n").err,
              HasSubstr("unknown message, rule or change"))
      << "what a command does not know is not for it";
  EXPECT_EQ(
      RunTool({"shell", "--output", "table", "--source", kNetwork}, "list sources --json\n").out,
      json);
}

TEST(Shell, ScriptErrorsHaveTheirLine) {
  const ToolRun run = RunScript("# a comment\nnope\n\ncreate missing.json\nget 'x\nget source x\n");
  EXPECT_EQ(run.err,
            "zelk-metadata: line 2: unknown command 'nope'; try help\n"
            "zelk-metadata: line 4: missing.json: No such file or directory\n"
            "zelk-metadata: line 5: a quote is not closed\n"
            "zelk-metadata: line 6: Metamodel source not found: x\n");
}

TEST(Shell, ScriptContinuesAfterAFailureAndReturnsTheFirstStatus) {
  const ToolRun run = RunScript(
      "# what fails, and what does not\n"
      "list gadgets\n"
      "\n"
      "nope\n"
      "explain zelk.metadata.json.missing.field\n");
  EXPECT_EQ(run.status, 3);
  EXPECT_THAT(run.out, StartsWith("zelk.metadata.json.missing.field\n"));
  EXPECT_THAT(run.err, HasSubstr("unknown kind 'gadgets'"));
  EXPECT_THAT(run.err, HasSubstr("unknown command 'nope'"));
  EXPECT_EQ(RunScript("nope\nlist gadgets\n").status, 2);
  EXPECT_EQ(RunTool({"shell", "--source", "missing.json"}, "list gadgets\n").status, 1);
}

TEST(Shell, QuitEndsTheSession) {
  const ToolRun run = RunScript("quit\nlist gadgets\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  Talk talk;
  EXPECT_FALSE(talk.IsOver());
  talk.Say("quit too many words");
  EXPECT_FALSE(talk.IsOver()) << "that is no quit";
  talk.Say("quit");
  EXPECT_TRUE(talk.IsOver());
  EXPECT_EQ(RunScript("exit\nlist gadgets\n").err, "");
}

TEST(Shell, HelpListsCommandsAndDescribesOne) {
  Talk talk;
  const std::string all = talk.Say("help").out;
  for (const auto& command : Zelk::Tool::SessionLanguage().commands) {
    EXPECT_THAT(all, HasSubstr(command.name + " "));
    EXPECT_THAT(all, HasSubstr(command.summary + "\n"));
    const ToolRun one = talk.Say("help " + command.name);
    EXPECT_THAT(one.out, HasSubstr("Usage: " + command.name)) << one.out;
    EXPECT_THAT(one.out, Not(HasSubstr("--source"))) << one.out;
  }
  const ToolRun unknown = talk.Say("help relaod");
  EXPECT_EQ(unknown.status, 3);
  EXPECT_EQ(unknown.err, "zelk-metadata: unknown command 'relaod'; did you mean reload?\n");
}

TEST(Shell, HelpOptionDescribesTheCommand) {
  Talk talk;
  const ToolRun run = talk.Say("list --help");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, talk.Say("help list").out);
  EXPECT_EQ(run.err, "");
}

TEST(Shell, InvalidLineIsWrongUsage) {
  Talk talk;
  EXPECT_EQ(talk.Say("get component 'com.acme").err, "zelk-metadata: a quote is not closed\n");
  EXPECT_EQ(talk.Say("get component 'com.acme").status, 2);
  EXPECT_EQ(talk.Say("create").status, 2);
  EXPECT_EQ(talk.Say("list components --source " + kInventory).status, 2);
  EXPECT_EQ(talk.Say("shell").status, 2);
}

TEST(Shell, ErrorsNameTheCommandsOfSessions) {
  const std::pair<std::string, std::string> rows[] = {
      {"relaod", "unknown command 'relaod'; did you mean reload?; try help"},
      {"frobnicate", "unknown command 'frobnicate'; try help"},
      {"complete", "unknown command 'complete'; try help"},
      {"--json", "a command is missing; try help"},
      {"tree --frobnicate", "unknown option '--frobnicate'; try help"},
      {"quit now", "unexpected argument 'now'; try help quit"},
      {"list operations", "usage: list operation SERVICE"},
  };
  Talk talk;
  for (const auto& [line, complaint] : rows) {
    EXPECT_EQ(talk.Say(line).err, "zelk-metadata: " + complaint + "\n") << line;
  }
}

TEST(Shell, StandardInputCannotBeASource) {
  for (const std::string line : {"create -", "create id=-", "check -", "check missing.json -"}) {
    const ToolRun run = RunScript(line + "\nexplain zelk.metadata.json.missing.field\n");
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_EQ(run.err,
              "zelk-metadata: line 1: '-' cannot be used in a session: standard input is the "
              "session's own\n")
        << line;
    EXPECT_THAT(run.out, StartsWith("zelk.metadata.json.missing.field\n")) << line;
  }
}

TEST(Shell, CreateReportsFailuresAndLoadsTheRest) {
  Talk talk;
  const ToolRun run = talk.Say("create missing.json " + kInventory);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("missing.json: No such file or directory"));
  EXPECT_EQ(talk.Say("list sources").out, "inventory\n");
  const ToolRun again = talk.Say("create " + kInventory);
  EXPECT_EQ(again.status, 1);
  EXPECT_THAT(again.err, HasSubstr(" is loaded already, as 'inventory' "))
      << "an id is taken until it is deleted";
}

TEST(Shell, DeleteAppliesToAllDomainsOrOne) {
  const std::string folder = ZELK_SOURCE_DIR "/metadata/";
  std::string metadata = "create";
  for (const char* domain : {"metamodel", "authentication", "cli"}) {
    metadata += " " + folder + domain;
  }
  Talk talk;
  EXPECT_EQ(talk.Say(metadata).status, 0);
  EXPECT_EQ(talk.Say("delete authentication:zelk-metadata").status, 0);
  EXPECT_EQ(talk.Say("list authentication:sources").out, "");
  EXPECT_EQ(talk.Say("list metamodel:sources").out, "zelk-metadata\n");
  EXPECT_EQ(talk.Say("delete zelk-metadata").status, 0);
  EXPECT_EQ(talk.Say("list sources").out, "");
  EXPECT_EQ(talk.Say("tree").out, "");
  EXPECT_EQ(talk.Say("list components").out, "");
}

TEST(Shell, DeleteOfAnUnknownSourceGetsSuggestions) {
  Talk talk;
  talk.Say("create " + kInventory);
  const ToolRun run = talk.Say("delete inventroy");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err, "zelk-metadata: no source has the id 'inventroy'; did you mean inventory?\n");
  EXPECT_EQ(talk.Say("reload inventroy").status, 3);
  EXPECT_EQ(talk.Say("delete ''").status, 3);
  EXPECT_EQ(talk.Say("list sources").out, "inventory\n");
}

TEST(Shell, ExactIdWinsOverDomainAndId) {
  Talk talk;
  const std::string create = "create one=" + kInventory + " metamodel:one=" + kNetwork;
  talk.Say(create);
  EXPECT_EQ(talk.Say("delete metamodel:one").status, 0);
  EXPECT_EQ(talk.Say("list sources").out, "one\n");
  talk.Say("delete one");
  talk.Say(create);
  const ToolRun run = talk.Say("reload metamodel:one --json");
  EXPECT_THAT(run.out, HasSubstr(R"([{"domain":"metamodel","source":"metamodel:one",)"));
  EXPECT_EQ(talk.Say("reload metamodel:metamodel:one --json").out, run.out);
}

TEST(Shell, ReloadTakesSeveralSourcesAndNoEmptyId) {
  Talk talk;
  talk.Say("create " + kInventory + " " + kNetwork);
  EXPECT_EQ(talk.Say("reload network inventory").out, "2 sources: 2 the same\n");
  const ToolRun run = talk.Say("reload ''");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelk-metadata: no source has the id ''\n");
  EXPECT_EQ(talk.Say("reload nobody inventory").status, 3);
}

TEST(Shell, CtrlCStopsLoading) {
  Talk talk;
  talk.Say("create " + kInventory);
  {
    const Zelk::Tool::InterruptWatch watch;
    EXPECT_FALSE(Zelk::Tool::IsInterrupted());
    raise(SIGINT);
    EXPECT_TRUE(Zelk::Tool::IsInterrupted());
    EXPECT_EQ(talk.Say("create " + kNetwork).err, "");
    EXPECT_EQ(talk.Say("reload").out, "0 sources\n");
    EXPECT_EQ(talk.Say("tree").out, "");
  }
  EXPECT_FALSE(Zelk::Tool::IsInterrupted());
  EXPECT_EQ(talk.Say("list sources").out, "inventory\n");
  EXPECT_THAT(talk.Say("tree").out, HasSubstr("com.acme"));
}

TEST(Shell, ReloadReportsChangedSourcesAndCountsTheOthers) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  Talk talk;
  talk.Say("create " + folder.Path(""));
  EXPECT_EQ(talk.Say("reload").out, "2 sources: 2 the same\n");
  folder.Write("b.json", MetamodelFile(Component("com.changed")));
  EXPECT_EQ(talk.Say("list components").out, "com.a\ncom.b\n") << "not yet";
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "changed\tmetamodel:b\n2 sources: 1 changed, 1 the same\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(talk.Say("list components").out, "com.a\ncom.changed\n");
}

TEST(Shell, ReloadKeepsTheDataOfAFileThatFailsAndReloadsTheOthers) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  folder.Write("c.json", MetamodelFile(Component("com.c")));
  Talk talk;
  talk.Say("create " + folder.Path(""));
  folder.Write("a.json", MetamodelFile(Component("com.a.new")));
  const std::string broken = folder.Write("b.json", "{\"metamodel\": {}}");
  folder.Write("c.json", MetamodelFile(Component("com.c.new")));
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "changed\tmetamodel:a\nkept\tmetamodel:b\nchanged\tmetamodel:c\n"
            "3 sources: 2 changed, 1 kept\n");
  EXPECT_EQ(run.err, "zelk-metadata: " + broken +
                         ": old data, since the file fails to load\n"
                         "zelk-metadata: " +
                         broken +
                         ":1:15: Json parse missing field: component "
                         "[zelk.metadata.json.missing.field]\n");
  EXPECT_EQ(talk.Say("list components").out, "com.a.new\ncom.b\ncom.c.new\n");
}

TEST(Shell, ReloadSaysWhyAFileCannotBeOpened) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + path);
  std::filesystem::remove(path);
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr(path + ": No such file or directory\n"));
  std::filesystem::create_directory(path);
  EXPECT_THAT(talk.Say("reload").err, HasSubstr(path + ": Is a directory\n"));
}

TEST(Shell, ReloadFindsNewAndRemovedFilesOfAFolder) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  Talk talk;
  talk.Say("create x=" + folder.Path(""));
  std::filesystem::create_directory(folder.Path("inner"));
  folder.Write("inner/c.json", MetamodelFile(Component("com.c")));
  std::filesystem::remove(folder.Path("a.json"));
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "removed\tmetamodel:x/a\nnew\tmetamodel:x/inner/c\n"
            "3 sources: 1 new, 1 removed, 1 the same\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(talk.Say("list components").out, "com.b\ncom.c\n");
  EXPECT_EQ(talk.Say("reload").out, "2 sources: 2 the same\n");
  folder.Write("a.json", MetamodelFile(Component("com.again")));
  EXPECT_THAT(talk.Say("reload").out, StartsWith("new\tmetamodel:x/a\n"));
}

TEST(Shell, ReloadLoadsAFileOfAFolderOnceItIsFixed) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  const std::string broken = folder.Write("b.json", "?");
  Talk talk;
  EXPECT_EQ(talk.Say("create " + folder.Path("")).status, 1);
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "failed\tmetamodel:b\n2 sources: 1 failed, 1 the same\n");
  EXPECT_THAT(run.err, HasSubstr(broken + ":1:1: Invalid value. [zelk"));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  EXPECT_EQ(talk.Say("reload").out, "new\tmetamodel:b\n2 sources: 1 new, 1 the same\n");
}

TEST(Shell, ReloadDoesNotBringBackWhatTheUserDeleted) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  Talk talk;
  talk.Say("create " + folder.Path(""));
  talk.Say("delete a");
  EXPECT_EQ(talk.Say("reload").out, "1 source: 1 the same\n");
}

TEST(Shell, ReloadKeepsTheSourcesOfAFolderThatIsGone) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("f"));
  folder.Write("f/a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + folder.Path("f"));
  std::filesystem::rename(folder.Path("f"), folder.Path("g"));
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "kept\tmetamodel:a\nfailed\t" + folder.Path("f") + "\n2 sources: 1 kept, 1 failed\n");
  EXPECT_EQ(talk.Say("list components").out, "com.a\n");
}

TEST(Shell, MemoryThatRunsOutFailsTheLineOnly) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers need more address space than is left";
#endif
  const ToolRun run = Zelk::Testing::RunShell(
      "cd $(dirname $0)\n"
      "printf '{\"metamodel\": ' > huge.json; truncate -s 400M huge.json\n"
      "ulimit -v 200000\n"
      "$tool list components --source huge.json; echo $?\n"
      "printf 'create huge.json\\nlist sources\\n' | $tool shell --source a=" +
      kInventory + " --source huge.json; echo $?");
  EXPECT_EQ(run.out, "4\na\n1\n");
  EXPECT_EQ(run.err,
            "zelk-metadata: out of memory\nzelk-metadata: out of memory\n"
            "zelk-metadata: line 1: out of memory\n");
}

TEST(Shell, BracketsThatDoNotFitInMemoryFailTheLineOnly) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers need more address space than is left";
#endif
  const ToolRun run = Zelk::Testing::RunShell(
      "cd $(dirname $0)\n"
      "(printf '{\"x\": '; head -c 30000000 /dev/zero | tr '\\0' '[') > deep.json\n"
      "ulimit -v 100000\n"
      "$tool list components --source deep.json; echo $?\n"
      "$tool check deep.json; echo $?");
  EXPECT_EQ(run.out, "4\n4\n");
  EXPECT_EQ(run.err, "zelk-metadata: out of memory\nzelk-metadata: out of memory\n");
}

TEST(Shell, ReloadReportsSourcesOfEveryDomain) {
  Talk talk;
  talk.Say("create " ZELK_SOURCE_DIR "/metadata/authentication m=" ZELK_SOURCE_DIR
           "/metadata/metamodel/zelk-metadata.json");
  const ToolRun run = talk.Say("reload --output json");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(HasSubstr("\"authentication\""), HasSubstr("\"metamodel\"")));
}

TEST(Shell, ReloadReportsAFileThatChangedItsDomain) {
  const TempFolder folder;
  const std::string path =
      folder.Write("a.json", FileText(ZELK_SOURCE_DIR "/metadata/cli/zelk-metadata.json"));
  Talk talk;
  ASSERT_EQ(talk.Say("create " + path).status, 0);
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "kept\tcli:a\n1 source: 1 kept\n");
  EXPECT_EQ(run.err, "zelk-metadata: " + path +
                         ": old data, since the file now belongs to metamodel; delete and create "
                         "it\n");
}

TEST(Shell, ReloadReportsAFileThatBelongsToNoDomain) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  ASSERT_EQ(talk.Say("create " + path).status, 0);
  folder.Write("a.json", R"({"metamodl": {}})");
  const ToolRun run = talk.Say("reload");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "kept\tmetamodel:a\n1 source: 1 kept\n");
  EXPECT_EQ(run.err, "zelk-metadata: " + path +
                         ": old data, since the file fails to load\nzelk-metadata: " + path +
                         ":1:2: Not a metadata file: the object does not have the key metamodel, "
                         "authentication or cli. Did you mean metamodel?\n");
}

TEST(Shell, TreeSaysWhereTheOldDataOfAKeptSourceIsShown) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + path);
  folder.Write("a.json", "{");
  EXPECT_EQ(talk.Say("reload").status, 1);
  const ToolRun run = talk.Say("tree");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zelk-metadata: " + path +
                         ": left out, since it has changed and fails to load; list and get still "
                         "show the old data\n");
  EXPECT_EQ(talk.Say("list components").out, "com.a\n");
}

TEST(Shell, CreateHasNoJson) {
  Talk talk;
  EXPECT_THAT(talk.Say("help create").out, Not(HasSubstr("--json")));
  EXPECT_THAT(talk.Say("help reload").out, HasSubstr("--json"));
  EXPECT_EQ(talk.Say("create --json " + kInventory).status, 2);
  EXPECT_EQ(talk.Complete("create --js").text, "");
  EXPECT_EQ(talk.Complete("reload --js").text, "--json ");
}

TEST(Shell, ReloadInJsonHasLinesAndErrors) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + path);
  folder.Write("a.json", "{");
  const auto document =
      Zelk::Testing::ParsedJson(talk.Say("reload metamodel:a --json").out, "sources");
  ASSERT_EQ(document.Size(), 1U);
  EXPECT_STREQ(document[0]["state"].GetString(), "kept");
  EXPECT_STREQ(document[0]["source"].GetString(), "a");
  EXPECT_STREQ(document[0]["file"].GetString(), path.c_str());
  EXPECT_EQ(document[0]["problems"].Size(), 1U);
}

TEST(Shell, AnswersComeFromLoadedDataNotFromFiles) {
  const TempFolder folder;
  const std::string path =
      folder.Write("a.json", MetamodelFile(Component("com.a", {Package("com.a.old", {})})));
  Talk talk;
  talk.Say("create " + path);
  folder.Write("a.json", MetamodelFile(Component("com.a", {Package("com.a.new", {})})));
  EXPECT_EQ(talk.Say("list packages").out, "com.a.old\n");
  talk.Say("reload a");
  EXPECT_EQ(talk.Say("list packages").out, "com.a.new\n");
  EXPECT_THAT(talk.Say("tree").out, AllOf(HasSubstr("com.a.new"), Not(HasSubstr("com.a.old"))));
  folder.Write("a.json", "gone wrong");
  talk.Say("reload");
  EXPECT_EQ(talk.Say("list packages").out, "com.a.new\n");
}

TEST(Shell, UsesLeavesOutAFileThatFailsToLoadAndSaysSo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + path + " " + kNetwork);
  EXPECT_EQ(talk.Say("uses service com.none").err,
            "zelk-metadata: no service has the id 'com.none'\n");
  const auto expect_left_out = [&] {
    const ToolRun run = talk.Say("uses service com.none");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "zelk-metadata: " + path +
                           ": left out, since it has changed and fails to load; list and get still "
                           "show the old data\n"
                           "zelk-metadata: no service has the id 'com.none'\n");
  };
  folder.Write("a.json", R"({"metamodel": 1})");
  expect_left_out();
  std::filesystem::remove(path);
  expect_left_out();
}

TEST(Shell, TreeLeavesOutAFileThatHasChangedAndSaysSo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.a")));
  Talk talk;
  talk.Say("create " + path + " " + kNetwork);
  folder.Write("a.json", MetamodelFile(Component("com.new")));
  for (const char* line : {"tree", "search acme", "which component com.acme.network"}) {
    const ToolRun run = talk.Say(line);
    EXPECT_EQ(run.status, 1) << line;
    EXPECT_THAT(run.out, AllOf(HasSubstr("network"), Not(HasSubstr("com.new")))) << line;
    EXPECT_EQ(run.err, "zelk-metadata: " + path +
                           ": left out, since it has changed since it was loaded; reload it\n")
        << line;
  }
}

TEST(ShellCompletion, CompletesCommandsKindsAndNamesOfWhatIsLoaded) {
  Talk talk;
  talk.Say("create " + kInventory);
  EXPECT_EQ(talk.Complete("rel").text, "reload ");
  EXPECT_EQ(talk.Complete("  rel").replaced, 3U);
  EXPECT_EQ(talk.Complete("reload").text, "reload ") << "the word is whole, and the next may begin";
  EXPECT_EQ(talk.Complete("get oper").text, "operation ");
  EXPECT_EQ(talk.Complete("get operation com.acme.inventory.m").text,
            "com.acme.inventory.machines ");
  EXPECT_EQ(talk.Complete("delete inv").text, "inventory ");
  EXPECT_EQ(talk.Complete("delete metamodel:inv").text, "metamodel:inventory ");
  EXPECT_EQ(talk.Complete("help f").text, "fingerprint ");
  EXPECT_EQ(talk.Complete("tree --js").text, "--json ");
  EXPECT_EQ(talk.Complete("--h").text, "--help ");
}

TEST(ShellCompletion, CompletesTheCommonBeginning) {
  Talk talk;
  const LineCompletion choices = talk.Complete("");
  EXPECT_EQ(choices.text, "");
  EXPECT_THAT(WordsOf(choices), IsSupersetOf({"create", "delete", "reload", "list", "quit"}));
  EXPECT_EQ(talk.Complete("explain zelk.metadata.js").text, "zelk.metadata.json.");
  EXPECT_THAT(talk.Complete("nope ").choices, ElementsAre());
}

TEST(ShellCompletion, NothingIsCompletedInAComment) {
  Talk talk;
  for (const char* line : {"#", "# li", "list #", "list #so", "  #"}) {
    const LineCompletion completion = talk.Complete(line);
    EXPECT_EQ(completion.text, "") << line;
    EXPECT_THAT(completion.choices, ElementsAre()) << line;
  }
}

TEST(ShellCompletion, CompletedPathsAreQuoted) {
  const TempFolder folder;
  folder.Write("one file.json", "");
  folder.Write("two.json", "");
  Talk talk;
  EXPECT_EQ(talk.Complete("check " + folder.Path("on")).text, folder.Path("one\\ file.json") + " ");
  EXPECT_EQ(talk.Complete("check " + folder.Path("one\\ f")).text,
            folder.Path("one\\ file.json") + " ");
  EXPECT_EQ(talk.Complete("create id=" + folder.Path("tw")).text,
            "id=" + folder.Path("two.json") + " ");
  const std::string path = folder.Path("");
  const std::string without_end = path.substr(0, path.size() - 1);
  EXPECT_EQ(talk.Complete("check " + without_end).text, path) << "a folder goes on";
  EXPECT_THAT(WordsOf(talk.Complete("check " + path)),
              ElementsAre(folder.Path("one file.json"), folder.Path("two.json")));
  EXPECT_EQ(talk.Complete("check " + folder.Path("none/x")).text, "");
  EXPECT_EQ(talk.Complete("check no-such-file-in-this-folder").text, "");
  EXPECT_EQ(talk.Complete("create =no-such-file").text, "") << "there is no id before the sign";
  EXPECT_EQ(talk.Complete("create " + folder.Path("tw")).text.find(folder.Path("tw")), 0U);
  folder.Write(".hidden.json", "");
  EXPECT_THAT(WordsOf(talk.Complete("check " + path)),
              Not(testing::Contains(HasSubstr(".hidden"))));
}
