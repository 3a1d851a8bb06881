#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "support/file_text.h"
#include "support/pty.h"
#include "support/repeat.h"
#include "support/source_dir.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// The program on a real terminal.

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
const std::string kPlainTerminal = "unset COLUMNS NO_COLOR; export TERM=xterm; ";

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

TEST_F(OnATerminal, ProgressIsShownAndRemoved) {
  const Shown shown = ShowOnTerminal(
      kPlainTerminal + kLateInput + kBinary + " list components --source - >/dev/null", 80,
      {{kProgress, "\n"}});
  EXPECT_EQ(shown.status, 0);
  EXPECT_THAT(shown.text, testing::StartsWith("\r\x1b[K" + kProgress + "\r\x1b[K"));
  EXPECT_THAT(shown.text, testing::EndsWith("\r\x1b[K"));
  EXPECT_THAT(shown.text, Not(HasSubstr("\n")));
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
