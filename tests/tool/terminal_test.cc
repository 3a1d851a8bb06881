#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "support/file_text.h"
#include "support/pty.h"
#include "support/repeat.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// The program on a real terminal.

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::Repeat;
using Zelk::Testing::Shown;
using Zelk::Testing::ShowOnTerminal;
using Zelk::Testing::TempFolder;

namespace {

const std::string kBinary = ZELK_METADATA_BINARY;
const std::string kInventory = " --source " + kDataFolder + "/inventory.json ";
const std::string kPlainTerminal = "unset COLUMNS NO_COLOR; export TERM=xterm PAGER=; ";

Shown OnTerminal(const std::string& line, unsigned short columns = 80,
                 const std::string& environment = "") {
  return ShowOnTerminal(kPlainTerminal + environment + kBinary + " " + line, columns);
}

std::size_t LongestLine(const std::string& text) {
  std::size_t longest = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find("\r\n", at), text.size());
    longest = std::max(longest, end - at);
    at = end + 2;
  }
  return longest;
}

/// A pipe that gives its bytes once a line is typed.
const std::string kLateInput =
    "stty -echo; { read -r; cat " + kDataFolder + "/inventory.json; } | ";
const std::string kProgress = "reading standard input ...";

class OnATerminal : public Zelk::Testing::TerminalTest {};

}  // namespace

TEST_F(OnATerminal, ListsHaveHeadingsInBold) {
  EXPECT_EQ(OnTerminal("list components" + kInventory).text, "\x1b[1mNAME\x1b[0m\r\ncom.acme\r\n");
}

TEST_F(OnATerminal, ColoursAreOffWhereTheyAreNotWanted) {
  for (const char* environment : {"export NO_COLOR=1; ", "export TERM=dumb; ", "unset TERM; "}) {
    EXPECT_EQ(OnTerminal("list components" + kInventory, 80, environment).text,
              "NAME\r\ncom.acme\r\n")
        << environment;
  }
}

TEST_F(OnATerminal, DocumentationIsWrappedToItsWidth) {
  const std::string line = "get component com.orvane.zelk.metadata --source " +
                           std::string(ZELK_SOURCE_DIR) + "/metadata/metamodel";
  const Shown narrow = OnTerminal(line, 70, "export NO_COLOR=1; ");
  EXPECT_EQ(narrow.status, 0) << narrow.text;
  EXPECT_LE(LongestLine(narrow.text), 70U);
  const Shown wide = OnTerminal(line, 70, "export NO_COLOR=1 COLUMNS=1000; ");
  EXPECT_GT(LongestLine(wide.text), 70U) << "COLUMNS counts more than the terminal";
}

TEST_F(OnATerminal, PipesGetPlainLines) {
  const Shown shown = OnTerminal("list components" + kInventory + "| cat", 20, "COLUMNS=10 ");
  EXPECT_EQ(shown.text, "com.acme\r\n");
}

TEST_F(OnATerminal, OutputOptionDecides) {
  EXPECT_EQ(OnTerminal("list components --output plain" + kInventory).text, "com.acme\r\n");
  EXPECT_EQ(OnTerminal("list components --json" + kInventory + "| cat").text,
            R"({"version":1,"names":[{"domain":"metamodel","kind":"component","name":"com.acme"}]})"
            "\r\n");
}

TEST_F(OnATerminal, JsonIsIndented) {
  EXPECT_EQ(OnTerminal("list components --json" + kInventory).text,
            "{\r\n"
            "  \"version\": 1,\r\n"
            "  \"names\": [\r\n"
            "    {\r\n"
            "      \"domain\": \"metamodel\",\r\n"
            "      \"kind\": \"component\",\r\n"
            "      \"name\": \"com.acme\"\r\n"
            "    }\r\n"
            "  ]\r\n"
            "}\r\n");
}

TEST_F(OnATerminal, JsonThatIsNestedVeryDeepIsOneLine) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "deep.json", R"({"cli": [{"type": "namespace", "name": "a", "description": "", "path": "a)" +
                       Repeat(".a", 200) + "\"}]}");
  const std::string tree = OnTerminal("tree --json --source " + file).text;
  EXPECT_EQ(std::count(tree.begin(), tree.end(), '\n'), 1);
}

TEST_F(OnATerminal, ErrorsAreColoured) {
  const std::string line = "get component nope" + kInventory;
  EXPECT_THAT(OnTerminal(line).text, testing::StartsWith("\x1b[1;31mzelk-metadata:\x1b[0m "));
  EXPECT_THAT(OnTerminal(line + "--color never").text, Not(HasSubstr("\x1b")));
}

TEST_F(OnATerminal, ProblemsOfCheckAreColoured) {
  const TempFolder folder;
  const std::string path =
      folder.Write("f.json", R"({"cli": [{"type": "command", "path": "", "name": "n",
 "description": "", "node_metadata": {"service_id": "s", "operation_id": "o", "options": 1}}],
 "metamodel": {}})");
  const std::string place = "check " + path;
  const std::string shown = OnTerminal(place, 200).text;
  EXPECT_THAT(shown, AllOf(HasSubstr("f.json:2:38: \x1b[1;36mnote:\x1b[0m Json parse "),
                           HasSubstr("f.json:2:90: \x1b[1;31merror:\x1b[0m "),
                           HasSubstr("f.json:3:2: \x1b[1;35mwarning:\x1b[0m \"metamodel\" is ")));
  EXPECT_EQ(OnTerminal(place + " --color never | cat").text, OnTerminal(place + " | cat").text);
  EXPECT_THAT(OnTerminal(place + " --color never").text, Not(HasSubstr("\x1b")));
}

TEST_F(OnATerminal, CheckRefersToLintIfAllFilesLoad) {
  const std::string hint = "'zelk-metadata lint' finds mistakes that load without a message.";
  const std::string good = "check " + kDataFolder + "/inventory.json ";
  EXPECT_THAT(OnTerminal(good).text, testing::EndsWith("inventory.json: ok\r\n" + hint + "\r\n"));
  EXPECT_THAT(OnTerminal(good + kDataFolder + "/commands.json").text,
              testing::EndsWith("2 files: 2 ok\r\n" + hint + "\r\n"));
  for (const char* words : {"/dev/null", "--quiet", "--output github", "--json", "| cat"}) {
    EXPECT_THAT(OnTerminal(good + words).text, Not(HasSubstr(hint))) << words;
  }
}

TEST_F(OnATerminal, ExplanationsAreWrappedToItsWidth) {
  for (const char* id : {"zelk.metadata.json.invalid.field", "unknown-key"}) {
    const std::string line = std::string("explain ") + id;
    EXPECT_THAT(OnTerminal(line, 100).text, HasSubstr("\x1b[1mMeans:\x1b[0m\r\n")) << id;
    const auto longest = [&](unsigned short columns) {
      const std::string page = OnTerminal(line, columns, "export NO_COLOR=1; ").text;
      const std::size_t begin = page.find("Means:");
      return LongestLine(page.substr(begin, page.find("Example:") - begin));
    };
    EXPECT_LE(longest(40), 40U) << id;
    EXPECT_GT(longest(150), 80U) << id;
    EXPECT_LE(longest(150), 150U) << id;
  }
}

TEST_F(OnATerminal, ColoursCanBeForced) {
  EXPECT_EQ(
      OnTerminal("list components --color always" + kInventory, 80, "export NO_COLOR=1; ").text,
      "\x1b[1mNAME\x1b[0m\r\ncom.acme\r\n");
}

TEST_F(OnATerminal, LinesAreBrokenOnlyBetweenWords) {
  const std::string metadata = " --source " ZELK_SOURCE_DIR "/metadata";
  const std::string prefix = "com.orvane.zelk.metadata.metamodel.";
  std::vector<std::string> lines{"--help",
                                 "tree" + metadata,
                                 "search md5" + metadata,
                                 "usage metadata metamodel component" + metadata,
                                 "get operation " + prefix + "source create" + metadata,
                                 "get service " + prefix + "source" + metadata,
                                 "which service " + prefix + "source" + metadata,
                                 "get component nope" + metadata,
                                 "get thing",
                                 "check " ZELK_SOURCE_DIR "/metadata /dev/null",
                                 "explain zelk.metadata.json.missing.field",
                                 "explain unknown-key"};
  for (const auto& command : Zelk::Tool::ProgramLanguage().commands) {
    lines.push_back(command.name + " --help");
  }
  for (const std::uint16_t columns : {std::uint16_t{40}, std::uint16_t{80}}) {
    for (const std::string& line : lines) {
      std::istringstream shown(OnTerminal(line, columns, "export NO_COLOR=1; ").text);
      for (std::string text; std::getline(shown, text, '\n');) {
        text.erase(std::min(text.find('\r'), text.size()));
        text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
        const bool is_word = text.find(' ') == std::string::npos;
        EXPECT_TRUE(is_word || text.size() <= columns) << line << ": " << text;
      }
    }
  }
}

TEST_F(OnATerminal, AnswerLongerThanTheScreenIsPaged) {
  const std::string pager = "export ZELK_METADATA_PAGER='sed s/^/paged:/' PAGER=false; ";
  EXPECT_THAT(OnTerminal("man", 80, pager).text, testing::StartsWith("paged:.TH"));
  EXPECT_THAT(OnTerminal("tree --json" + kInventory, 80, pager).text,
              testing::StartsWith("paged:{"));
  EXPECT_THAT(OnTerminal("--help", 80, pager).text, testing::StartsWith("paged:"));
  EXPECT_THAT(OnTerminal("list components" + kInventory, 80, pager).text, Not(HasSubstr("paged")));
  EXPECT_THAT(OnTerminal("man", 80, "export PAGER='sed s/^/paged:/'; ").text, HasSubstr("paged:"));
}

TEST_F(OnATerminal, PagerIsNotUsedWhereItIsNotWanted) {
  const std::string pager = "export PAGER='sed s/^/paged:/'; ";
  EXPECT_THAT(OnTerminal("man --no-pager", 80, pager).text, testing::StartsWith(".TH"));
  EXPECT_THAT(OnTerminal("man | cat", 80, pager).text, testing::StartsWith(".TH"));
  for (const char* refused : {"export TERM=dumb; ", "export PAGER=cat; ", "export PAGER=; ",
                              "export ZELK_METADATA_PAGER=; "}) {
    EXPECT_THAT(OnTerminal("man", 80, pager + refused).text, testing::StartsWith(".TH")) << refused;
  }
}

TEST_F(OnATerminal, PagerThatIsNotInstalledIsReplaced) {
  EXPECT_THAT(OnTerminal("man", 80, "export PAGER=no-such-pager; ").text,
              AllOf(HasSubstr("no-such-pager"), HasSubstr("\n.TH"), HasSubstr("earlier sessions")));
  const TempFolder folder;
  std::filesystem::create_symlink("/bin/cat", folder.Path("cat"));
  EXPECT_THAT(OnTerminal("man", 80, "unset PAGER; export PATH=" + folder.Path("") + "; ").text,
              AllOf(testing::StartsWith(".TH"), HasSubstr("earlier sessions")));
}

TEST_F(OnATerminal, LessGetsOptionsUnlessTheUserHasSome) {
  const std::string pager = "export ZELK_METADATA_PAGER='echo \"less: $LESS\"'; ";
  EXPECT_EQ(OnTerminal("man", 80, "unset LESS; " + pager).text, "less: FRX\r\n");
  EXPECT_EQ(OnTerminal("man", 80, "export LESS=S; " + pager).text, "less: S\r\n");
}

TEST_F(OnATerminal, StatusIsThatOfTheCommandHoweverThePagerEnds) {
  const std::string service = " com.acme.inventory.machines";
  std::string services;
  for (int i = 0; i < 200; ++i) services += service;
  for (const char* pager : {"export PAGER='head -n 1'; ", "export PAGER='cat; false'; "}) {
    const Shown shown = OnTerminal("get services" + services + " nope" + kInventory, 80,
                                   pager + std::string("export NO_COLOR=1; "));
    EXPECT_EQ(shown.status, 3) << pager;
    EXPECT_THAT(shown.text, testing::StartsWith("service com.acme.inventory.machines\r\n"))
        << pager;
    EXPECT_THAT(shown.text,
                testing::EndsWith("\r\nzelk-metadata: Metamodel service not found: nope\r\n"))
        << "complaints wait for the pager";
    EXPECT_EQ(OnTerminal("get services" + services + kInventory, 80, pager).status, 0) << pager;
  }
}

TEST_F(OnATerminal, ProgressIsShownAndRemoved) {
  const Shown shown = ShowOnTerminal(
      kPlainTerminal + kLateInput + kBinary + " list components --source - >/dev/null", 80,
      {{kProgress, "\n"}});
  EXPECT_EQ(shown.status, 0);
  EXPECT_THAT(shown.text, testing::StartsWith("\r\x1b[K" + kProgress + "\r\x1b[K"));
  EXPECT_THAT(shown.text, testing::EndsWith("\r\x1b[K"));
  EXPECT_THAT(shown.text, Not(HasSubstr("\n")));
}

TEST_F(OnATerminal, ProgressIsCutToTheWidth) {
  const Shown shown = ShowOnTerminal(
      kPlainTerminal + kLateInput + kBinary + " list components --source - >/dev/null", 15,
      {{"reading stan...", "\n"}});
  EXPECT_EQ(shown.status, 0);
  EXPECT_THAT(shown.text, testing::StartsWith("\r\x1b[Kreading stan...\r\x1b[K"));
}

TEST_F(OnATerminal, ProgressIsNotWrittenToAFile) {
  const TempFolder folder;
  const std::string list = kBinary + " list components --source - >/dev/null ";
  // Two programs wait for the same input; the one that shows its progress reports how long.
  const Shown shown = ShowOnTerminal(
      kPlainTerminal + kLateInput + "tee >(" + list + ") | " + list + "2>" + folder.Path("err"), 80,
      {{kProgress, "\n"}});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(FileText(folder.Path("err")), "");
}

TEST_F(OnATerminal, CommandWorksWithoutMemoryForItsProgress) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers need more address space than is left";
#endif
  // A thread needs a stack as large as that of the program.
  const Shown shown = OnTerminal("list components --output plain" + kInventory, 80,
                                 "ulimit -s 1000000; ulimit -v 500000; ");
  EXPECT_EQ(shown.status, 0) << shown.text;
  EXPECT_EQ(shown.text, "com.acme\r\n");
}

TEST_F(OnATerminal, InvalidWidthIsIgnored) {
  const std::string line = "get component com.orvane.zelk.metadata --source " +
                           std::string(ZELK_SOURCE_DIR) + "/metadata/metamodel";
  const std::string expected = OnTerminal(line, 70, "export NO_COLOR=1; ").text;
  for (const char* columns : {"", "0", "wide", "1000x", "99999999999999999999999"}) {
    EXPECT_EQ(OnTerminal(line, 70, "export NO_COLOR=1 COLUMNS=" + std::string(columns) + "; ").text,
              expected)
        << columns;
  }
}

TEST_F(OnATerminal, EmptyNoColorIsIgnored) {
  EXPECT_THAT(OnTerminal("list components" + kInventory, 80, "export NO_COLOR=; ").text,
              HasSubstr("\x1b[1m"));
}
