#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "complete/scripts.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/pty.h"
#include "support/temp_folder.h"
#include "tool/shell_run.h"
#include "tool/tool_run.h"

// That the shells complete with what the program answers to their scripts. Their zelk-metadata
// prints its arguments, once its line is complete.

using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Operation;
using Zelk::Testing::Package;
using Zelk::Testing::RunShell;
using Zelk::Testing::Service;
using Zelk::Testing::Shown;
using Zelk::Testing::ShowOnTerminal;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Typing;
using Zelk::Tool::Command;
using Zelk::Tool::ProgramLanguage;

namespace {

using Lines = std::vector<std::string>;

const std::string kInventory = "--source " + kDataFolder + "/inventory.json ";

const std::string kSetUp =
    "tool=" ZELK_METADATA_BINARY "; export TERM=dumb PATH=${tool%/*}:$PATH HOME=$PWD; ";

/// What a bash does when these keys are typed. The line that comes out of it is printed
/// word by word; what is shown while it is typed is on standard error.
ToolRun TypeInBash(const std::string& keys, const TempFolder& folder = TempFolder()) {
  folder.Write("rc",
               "PS1=\n"
               "source <(command zelk-metadata completion bash)\n"
               "zelk-metadata() {\n"
               "  if [ \"$1\" = complete ]; then command zelk-metadata \"$@\"; return; fi\n"
               "  printf '<%s>' \"$@\"; echo\n"
               "}\n");
  folder.Write("keys", keys);
  return RunShell("cd " + folder.Path("") + "; " + kSetUp +
                  "bash --noprofile --rcfile rc -i <keys");
}

std::string LinesInBash(const Lines& lines, const TempFolder& folder) {
  std::string keys;
  for (const std::string& line : lines) keys += line + "\n";
  return TypeInBash(keys, folder).out;
}

/// For shells that complete on a terminal only: each line is typed at a prompt of its own.
std::string LinesOnTerminal(const std::string& shell, const Lines& lines,
                            const TempFolder& folder) {
  std::vector<Typing> steps;
  for (const std::string& line : lines) steps.push_back({"ready> ", line + "\r"});
  steps.push_back({"ready> ", "exit\r"});
  const std::string command = "cd " + folder.Path("") + "; " + kSetUp + "exec " + shell;
  const Shown shown = ShowOnTerminal(command, 200, steps);
  EXPECT_EQ(shown.status, 0) << shown.text;
  return FileText(folder.Path("out"));
}

std::string LinesInZsh(const Lines& lines, const TempFolder& folder) {
  folder.Write(".zshrc",
               "PS1='ready> '\n"
               "autoload -U compinit && compinit -u -D\n"
               "source <(command zelk-metadata completion zsh)\n"
               "zelk-metadata() {\n"
               "  if [ \"$1\" = complete ]; then command zelk-metadata \"$@\"; return; fi\n"
               "  { printf '<%s>' \"$@\"; echo } >>~/out\n"
               "}\n");
  return LinesOnTerminal("zsh -d", lines, folder);
}

std::string LinesInFish(const Lines& lines, const TempFolder& folder) {
  folder.Write("rc",
               "function fish_prompt; echo -n 'ready> '; end\n"
               "command zelk-metadata completion fish | source\n"
               "function zelk-metadata; printf '<%s>' $argv >>~/out; echo >>~/out; end\n");
  return LinesOnTerminal("fish --no-config --init-command 'source ~/rc'", lines, folder);
}

/// What the lines print that are typed in that folder, which is the home folder, too.
using TypeLines = std::string (*)(const Lines& lines, const TempFolder& folder);

const std::map<std::string, TypeLines> kShells{
    {"bash", LinesInBash}, {"fish", LinesInFish}, {"zsh", LinesInZsh}};

class CompletionInBash : public Zelk::Testing::TerminalTest {};

class CompletionInFish : public Zelk::Testing::TerminalTest {};

class CompletionInEveryShell : public Zelk::Testing::TerminalTest,
                               public testing::WithParamInterface<std::string> {
 protected:
  static std::string Type(const Lines& lines, const TempFolder& folder) {
    return kShells.at(GetParam())(lines, folder);
  }
};

INSTANTIATE_TEST_SUITE_P(Shells, CompletionInEveryShell,
                         testing::ValuesIn(Zelk::Tool::Complete::CompletedShells()),
                         [](const auto& shell) { return shell.param; });

// Names that mean something to a shell, and beginnings of them that a user may type, the quotes of
// which all shells read alike.
struct Typed {
  std::string beginning;
  std::string name;
};

const Typed kStrangeNames[] = {
    {"a", "a b"},
    {"a\\ ", "a b"},
    {"'a ", "a b"},
    {"q", "q'q"},
    {"'q", "q'q"},
    {"\"q", "q'q"},
    {"q\\'", "q'q"},
    {"d", "d\"d"},
    {"'d", "d\"d"},
    {"\"d", "d\"d"},
    {"h", "h$HOME`id`(id)"},
    {"'h", "h$HOME`id`(id)"},
    {"\"h", "h$HOME`id`(id)"},
    {"h\\$", "h$HOME`id`(id)"},
    {"s", "s;\\&*"},
    {"'s", "s;\\&*"},
    {"\"s", "s;\\&*"},
    {"\"s;\\\\", "s;\\&*"},
    {"e", "e ty:=x"},
    {"e\\ ty:", "e ty:=x"},
    {"'e ty:", "e ty:=x"},
    {"\"e ty:=", "e ty:=x"},
    {"e' 'ty:=", "e ty:=x"},
};

std::string StrangeNames() {
  return MetamodelFile(
      Component("c", {Package("a b"), Package("q'q"), Package("d\\\"d"), Package("h$HOME`id`(id)"),
                      Package("s;\\\\&*"), Package("e ty:=x")}));
}

}  // namespace

TEST_P(CompletionInEveryShell, KeepsTheQuotesOfTheUser) {
  const TempFolder folder;
  folder.Write("strange.json", StrangeNames());
  Lines lines;
  std::string expected;
  for (const Typed& typed : kStrangeNames) {
    lines.push_back("zelk-metadata get package --source strange.json " + typed.beginning + "\t");
    expected += "<get><package><--source><strange.json><" + typed.name + ">\n";
  }
  EXPECT_EQ(Type(lines, folder), expected);
}

TEST_P(CompletionInEveryShell, UnderstandsQuotedWordsBefore) {
  const TempFolder folder;
  folder.Write("f.json", MetamodelFile(Component(
                             "c", {Package("p", {Service("a'\\\\$b", {Operation("run")})})})));
  const std::string line = "zelk-metadata get operation --source f.json ";
  EXPECT_EQ(Type({line + "a\\'\\\\\\$b r\t", line + "\"a'\\\\\\$b\" r\t"}, folder),
            "<get><operation><--source><f.json><a'\\$b><run>\n"
            "<get><operation><--source><f.json><a'\\$b><run>\n");
}

TEST_P(CompletionInEveryShell, FindsSourcesInTheHomeFolder) {
  const TempFolder folder;
  folder.Write("home.json", MetamodelFile(Component("at_home")));
  folder.Write("at home.json", MetamodelFile(Component("there")));
  const std::string line = "cd /; zelk-metadata get component --source ";
  EXPECT_EQ(Type({line + "~/home.json a\t", line + "~/at\\ home.json t\t"}, folder),
            "<get><component><--source><" + folder.Path("home.json") + "><at_home>\n" +
                "<get><component><--source><" + folder.Path("at home.json") + "><there>\n");
}

TEST_P(CompletionInEveryShell, CompletesPathsAsTheShellDoes) {
  const TempFolder folder;
  folder.Write("a file", "");
  const std::string check = "zelk-metadata check ";
  EXPECT_EQ(Type({check + "a\t", check + "a\\ \t", check + "'a \t", check + "\"a\t",
                  check + "~/a\t", check + "--source id=a\t"},
                 folder),
            "<check><a file>\n<check><a file>\n<check><a file>\n<check><a file>\n<check><" +
                folder.Path("a file") + ">\n<check><--source><id=a file>\n");
}

TEST_F(CompletionInBash, CompletesCommandsOptionsKindsAndNames) {
  const std::string keys =
      "zelk-metadata lis\t--outp\tpl\t" + kInventory + "oper\tcom.acme.inventory.m\t\n";
  EXPECT_THAT(TypeInBash(keys).out, HasSubstr("<list><--output><plain><--source><" + kDataFolder +
                                              "/inventory.json><operation>"
                                              "<com.acme.inventory.machines>\n"));
}

TEST_F(CompletionInBash, CompletesAfterCharactersThatSplitWords) {
  EXPECT_THAT(TypeInBash("zelk-metadata list metamodel:oper\t\n").out,
              HasSubstr("<list><metamodel:operation>\n"));
  EXPECT_THAT(TypeInBash("zelk-metadata check --output=gi\t\n").out,
              HasSubstr("<check><--output=github>\n"));
}

TEST_F(CompletionInBash, ShowsWhatTheChoicesMean) {
  const std::string shown = TypeInBash("zelk-metadata \t\t\n").err;
  for (const Command& command : ProgramLanguage().commands) {
    EXPECT_THAT(shown, HasSubstr("(" + command.summary + ")"));
  }
}

TEST_F(CompletionInBash, EvaluatesNoNameOfAFile) {
  const TempFolder folder;
  const std::string path =
      folder.Write("hostile.json", MetamodelFile(Component("$(touch${IFS}gone)`touch gone`;x")));
  const std::string shown =
      TypeInBash("zelk-metadata --source " + path + " get component \t\nls\n").out;
  EXPECT_THAT(shown, HasSubstr("<$(touch${IFS}gone)`touch gone`;x>\n"));
  EXPECT_THAT(shown, Not(HasSubstr("\ngone\n")));
}

TEST_F(CompletionInFish, CompletesPathsAfterTheIdOfASource) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("a dir"));
  folder.Write("a dir/file", "");
  const std::string list = "zelk-metadata list ";
  EXPECT_EQ(LinesInFish({list + "--source x=a\\ dir/\t", list + "--source \"x=a dir/\t",
                         list + "--source 'x y=a dir/f\t", list + "--source=x=a\\ dir/\t"},
                        folder),
            "<list><--source><x=a dir/file>\n<list><--source><x=a dir/file>\n"
            "<list><--source><x y=a dir/file>\n<list><--source=x=a dir/file>\n");
}
