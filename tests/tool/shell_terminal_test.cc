#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include "shell/history.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/pty.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// A session at a real terminal. Control keys are pressed only once the editor has shown something
// that the terminal itself would not: until then it may not read the keys yet.

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::Package;
using Zelk::Testing::Shown;
using Zelk::Testing::ShowOnTerminal;
using Zelk::Testing::TempFolder;
using Zelk::Testing::Typing;
using Zelk::Tool::Shell::HistoryFile;

namespace {

const std::string kPrompt = "zelk> ";

/// `before` is run by the shell that then becomes the program.
Shown TypeInShell(const std::string& state, const std::vector<Typing>& steps,
                  const std::string& before = "", const std::string& options = "") {
  const std::string environment =
      "unset COLUMNS; export PAGER= TERM=xterm NO_COLOR=1 LC_ALL=C.UTF-8 XDG_STATE_HOME=" + state +
      "; " + before;
  return ShowOnTerminal(environment + "exec " ZELK_METADATA_BINARY " shell " + options +
                            " --source " + kDataFolder + "/inventory.json",
                        80, steps);
}

class ShellOnATerminal : public Zelk::Testing::TerminalTest {};

}  // namespace

TEST_F(ShellOnATerminal, CompletesAnswersAndRemembers) {
  const TempFolder folder;
  const Shown first = TypeInShell(folder.Path("state"), {{kPrompt, "get comp\t"},
                                                         {"onent", "\t"},
                                                         {"com.acme", "\r"},
                                                         {kPrompt, "re\t"},
                                                         {"load", "\r"},
                                                         {kPrompt, "quit\r"}});
  EXPECT_EQ(first.status, 0) << first.text;
  EXPECT_THAT(first.text, HasSubstr("component com.acme"));
  EXPECT_THAT(first.text, HasSubstr("1 source: 1 the same"));
  EXPECT_THAT(FileText(folder.Path("state/zelk-metadata/history")), HasSubstr("reload"));
  const Shown second =
      TypeInShell(folder.Path("state"),
                  {{kPrompt, "\x1b[A"}, {"quit", "\x1b[A"}, {"reload", "\r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(second.status, 0) << second.text;
  EXPECT_THAT(second.text, HasSubstr("1 source: 1 the same"));
}

TEST_F(ShellOnATerminal, CtrlCDropsTheLine) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "list comp\t"},
                                                         {"onent ", "\x03"},
                                                         {kPrompt, "list sources\r"},
                                                         {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, AllOf(HasSubstr("inventory\r\n"), Not(HasSubstr("com.acme"))));
}

TEST_F(ShellOnATerminal, ChoicesThatAreShownAreLimited) {
  std::string packages;
  for (int i = 0; i < 120; ++i) {
    const std::string name = (i % 2 == 0 ? "a" : "b") + std::to_string(i);
    packages += (i == 0 ? "" : ", ") + Package(name).Json();
  }
  const TempFolder folder;
  const std::string path =
      folder.Write("many.json", R"({"metamodel": {"component": {"name": "com.many",
      "documentation": "", "metadata": {}, "packages": [)" +
                                    packages + "]}}}");
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "create " + path + "\r"},
                                                         {kPrompt, "get package \t"},
                                                         {"and 22 more", "\x03"},
                                                         {"^C\r\n", "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text,
              AllOf(HasSubstr("\na0                  a36  "), HasSubstr("and 22 more\r\n")));
}

TEST_F(ShellOnATerminal, BeepsWithoutCompletions) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"),
                                  {{kPrompt, "nope \t"}, {"\a", "\x03"}, {"^C\r\n", "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
}

TEST_F(ShellOnATerminal, BlankLinesAreNotKept) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "  \r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_EQ(FileText(folder.Path("state/zelk-metadata/history")), "_HiStOrY_V2_\nquit\n");
}

TEST_F(ShellOnATerminal, CtrlDOnAnEmptyLineEndsTheSession) {
  const TempFolder folder;
  const Shown shown =
      TypeInShell(folder.Path("state"), {{kPrompt, "get comp\t"}, {"onent", "\x15\x04"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
}

TEST_F(ShellOnATerminal, CtrlCEndsAnAnswer) {
  std::string text;
  for (int i = 100000; i < 200000; ++i) text += "line" + std::to_string(i) + "\\n";
  const TempFolder folder;
  const std::string path = folder.Write("a.json", MetamodelFile(Component("com.long").Doc(text)));
  for (const std::string output : {"plain", "json"}) {
    const Shown shown = TypeInShell(folder.Path("state"),
                                    {{kPrompt, "create " + path + "\r"},
                                     {kPrompt, "get component com.long --output " + output + "\r"},
                                     {"line100001", "\x03"},
                                     {"\n" + kPrompt, "list sources\r"},
                                     {"inventory", "quit\r"}});
    EXPECT_EQ(shown.status, 0) << output;
    EXPECT_THAT(shown.text, Not(HasSubstr("line150000"))) << output;
  }
}

TEST_F(ShellOnATerminal, PagerRunsInASession) {
  const TempFolder folder;
  const Shown shown = TypeInShell(
      folder.Path("state"),
      {{kPrompt, "tree --json\r"}, {"\n" + kPrompt, "list sources\r"}, {kPrompt, "quit\r"}},
      "export PAGER='head -n 2'; ");
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text,
              AllOf(HasSubstr("{\r\n  \"version\": 1,\r\nzelk> "), HasSubstr("\r\ninventory\r\n")));
}

TEST_F(ShellOnATerminal, SessionMayAnswerInJson) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"),
                                  {{kPrompt, "list sources\r"},
                                   {"]\r\n}", "list sources --output plain\r"},
                                   {"inventory\r\n", "quit\r"}},
                                  "", "--json");
  EXPECT_EQ(shown.status, 0) << shown.text;
}

TEST_F(ShellOnATerminal, AnswersFitTheResizedTerminal) {
  const TempFolder folder;
  const Shown shown = TypeInShell(
      folder.Path("state"),
      {{kPrompt, "help\r"}, {"\n" + kPrompt, "help\r", 50}, {"\n" + kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, HasSubstr("which are passed over, and\r\n"));
  EXPECT_THAT(shown.text, HasSubstr("what it means, and what to\r\n"));
}

TEST_F(ShellOnATerminal, TakesUtf8InTheCLocale) {
  const TempFolder folder;
  const Shown shown = TypeInShell(
      folder.Path("state"), {{kPrompt, "explain \xc3\xa4\r"}, {kPrompt, "quit\r"}}, "LC_ALL=C; ");
  EXPECT_THAT(shown.text, HasSubstr("unknown message, rule or change '\xc3\xa4'"));
}

TEST_F(ShellOnATerminal, HistoryThatCannotBeKeptIsNotAnError) {
  const TempFolder folder;
  const std::string no_folder = folder.Write("state", "a file");
  const Shown shown = TypeInShell(no_folder, {{kPrompt, "list sources\r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, HasSubstr("inventory\r\n"));
  EXPECT_THAT(shown.text, Not(HasSubstr("state")));
}

TEST_F(ShellOnATerminal, HistoryIsInTheHomeFolderByDefault) {
  const TempFolder folder;
  const std::vector<Typing> steps{{kPrompt, "list sources\r"}, {kPrompt, "quit\r"}};
  for (const char* elsewhere : {"unset XDG_STATE_HOME; ", "XDG_STATE_HOME=relative; "}) {
    std::filesystem::remove_all(folder.Path(".local"));
    TypeInShell("", steps, elsewhere + ("export HOME=" + folder.Path("") + "; "));
    EXPECT_THAT(FileText(folder.Path(".local/state/zelk-metadata/history")), HasSubstr("quit"));
  }
  const Shown homeless = TypeInShell("", steps, "unset XDG_STATE_HOME HOME; ");
  EXPECT_EQ(homeless.status, 0) << homeless.text;
}

TEST_F(ShellOnATerminal, HistoryIsKeptWhenTheTerminalIsClosed) {
  const TempFolder folder;
  const std::string history = folder.Path("state/zelk-metadata/history");
  TypeInShell(folder.Path("state"),
              {{kPrompt, "list sources\r"}, {kPrompt, "tree\r"}, {kPrompt, "", 0, true}});
  EXPECT_EQ(FileText(history), "_HiStOrY_V2_\nlist\\040sources\ntree\n");
  EXPECT_EQ(std::filesystem::status(history).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(ShellHistory, IsSharedBySessionsAtTheSameTime) {
  const TempFolder folder;
  setenv("XDG_STATE_HOME", folder.Path("").c_str(), 1);
  HistoryFile one;
  HistoryFile other;
  unsetenv("XDG_STATE_HOME");
  one.Append("first");
  other.Append("second");
  one.Append("third");
  EXPECT_EQ(FileText(one.Path()), "_HiStOrY_V2_\nfirst\nsecond\nthird\n");
}

TEST_F(ShellOnATerminal, HistoryKeepsLinesUnchanged) {
  const TempFolder folder;
  const std::string line = "search 'a\\b \xc3\xa4 ~'";
  TypeInShell(folder.Path("state"), {{kPrompt, line + "\r"}, {kPrompt, "quit\r"}});
  const Shown shown =
      TypeInShell(folder.Path("state"),
                  {{kPrompt, "\x1b[A"}, {"quit", "\x1b[A"}, {line, "\r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
}

TEST_F(ShellOnATerminal, HistoryKeepsTheNewestLines) {
  const TempFolder folder;
  std::string text = "_HiStOrY_V2_\n";
  for (int i = 0; i < 1500; ++i) text += "line" + std::to_string(i) + "\n";
  std::filesystem::create_directories(folder.Path("zelk-metadata"));
  const std::string history = folder.Write("zelk-metadata/history", text);
  TypeInShell(folder.Path(""), {{kPrompt, "quit\r"}});
  const std::string kept = FileText(history);
  EXPECT_THAT(kept, testing::StartsWith("_HiStOrY_V2_\nline500\nline501\n"));
  EXPECT_THAT(kept, testing::EndsWith("line1499\nquit\n"));
}

TEST_F(ShellOnATerminal, HistoryFileOfAnotherFormatIsLeftAlone) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.Path("zelk-metadata"));
  const std::string text = "dear diary\n";
  const std::string diary = folder.Write("zelk-metadata/history", text);
  EXPECT_EQ(TypeInShell(folder.Path(""), {{kPrompt, "quit\r"}}).status, 0);
  EXPECT_EQ(FileText(diary), text);
  std::filesystem::remove(diary);
  ASSERT_EQ(mkfifo(diary.c_str(), 0600), 0);
  EXPECT_EQ(TypeInShell(folder.Path(""), {{kPrompt, "quit\r"}}).status, 0);
  EXPECT_TRUE(std::filesystem::is_fifo(diary));
}

TEST_F(ShellOnATerminal, CtrlDEndsTheSession) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "\t"}, {"End the", "\x04"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, testing::EndsWith("\b\b  \r\n")) << "over the ^D of the editor";
}

TEST_F(ShellOnATerminal, ChoicesAreShownWithTheirMeaning) {
  const TempFolder folder;
  const Shown shown =
      TypeInShell(folder.Path("state"), {{kPrompt, "\t"}, {"End the session", "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, HasSubstr("quit         End the session\r\n"));
}
