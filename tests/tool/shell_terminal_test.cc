#include <string>

#include <gmock/gmock.h>

#include "support/file_text.h"
#include "support/pty.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// A session at a real terminal. Control keys are pressed only once the editor has shown something
// that the terminal itself would not: until then it may not read the keys yet.

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::Shown;
using Zelk::Testing::ShowOnTerminal;
using Zelk::Testing::TempFolder;
using Zelk::Testing::Typing;

namespace {

const std::string kPrompt = "zelk> ";

Shown TypeInShell(const std::string& state, const std::vector<Typing>& steps) {
  const std::string environment =
      "unset COLUMNS; export TERM=xterm NO_COLOR=1 XDG_STATE_HOME=" + state + "; ";
  return ShowOnTerminal(environment + "exec " ZELK_METADATA_BINARY " shell --source " +
                            kDataFolder + "/inventory.json",
                        80, steps);
}

}  // namespace

TEST(ShellOnATerminal, CompletesAnswersAndRemembers) {
  const TempFolder folder;
  const Shown first = TypeInShell(folder.Path("state"), {{kPrompt, "get comp\t"},
                                                         {"onent", "\t"},
                                                         {"com.acme", "\r"},
                                                         {kPrompt, "re\t"},
                                                         {"load", "\r"},
                                                         {kPrompt, "quit\r"}});
  EXPECT_EQ(first.status, 0) << first.text;
  EXPECT_THAT(first.text, HasSubstr("component com.acme"));
  EXPECT_THAT(first.text, HasSubstr("same   metamodel:inventory"));
  EXPECT_THAT(FileText(folder.Path("state/zelk-metadata/history")), HasSubstr("reload"));
  const Shown second =
      TypeInShell(folder.Path("state"),
                  {{kPrompt, "\x1b[A"}, {"quit", "\x1b[A"}, {"reload", "\r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(second.status, 0) << second.text;
  EXPECT_THAT(second.text, HasSubstr("same   metamodel:inventory"));
}

TEST(ShellOnATerminal, CtrlCGivesUpTheLineAndAsksAgain) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "list comp\t"},
                                                         {"onent ", "\x03"},
                                                         {kPrompt, "list sources\r"},
                                                         {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, AllOf(HasSubstr("inventory\r\n"), Not(HasSubstr("com.acme"))));
}

TEST(ShellOnATerminal, AHistoryThatCannotBeKeptBothersNobody) {
  const TempFolder folder;
  const std::string no_folder = folder.Write("state", "a file");
  const Shown shown = TypeInShell(no_folder, {{kPrompt, "list sources\r"}, {kPrompt, "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, HasSubstr("inventory\r\n"));
  EXPECT_THAT(shown.text, Not(HasSubstr("state")));
}

TEST(ShellOnATerminal, CtrlDEndsIt) {
  const TempFolder folder;
  const Shown shown = TypeInShell(folder.Path("state"), {{kPrompt, "\t"}, {"End the", "\x04"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, testing::EndsWith("\r\n"));
}

TEST(ShellOnATerminal, TheChoicesAreShownWithTheirMeaningBelowTheLine) {
  const TempFolder folder;
  const Shown shown =
      TypeInShell(folder.Path("state"), {{kPrompt, "\t"}, {"End the session", "quit\r"}});
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_THAT(shown.text, HasSubstr("quit         End the session\r\n"));
}
