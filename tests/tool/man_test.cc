#include <sstream>
#include <string>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "language/about.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::RunLine;
using Zelk::Testing::ToolRun;
using Zelk::Tool::Command;
using Zelk::Tool::ProgramLanguage;

namespace {

/// With the hyphens as roff wants them.
std::string Roff(const std::string& text) {
  std::string roff;
  for (const char character : text) roff += character == '-' ? "\\-" : std::string(1, character);
  return roff;
}

}  // namespace

TEST(Manual, NamesEveryCommandWithItsOperandsOptionsAndExample) {
  const ToolRun run = RunLine("man");
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, StartsWith(".TH ZELK\\-METADATA 1 "));
  for (const Command& command : ProgramLanguage().commands) {
    EXPECT_THAT(run.out, HasSubstr("\n.SS " + command.name + "\n"));
    EXPECT_THAT(run.out, HasSubstr("\n" + Roff(command.summary) + ".\n"));
    EXPECT_THAT(run.out, HasSubstr("\\fB" + Roff("zelk-metadata " + command.example) + "\\fR"));
    for (const auto& operand : command.operands) {
      EXPECT_THAT(run.out, HasSubstr("\n" + Roff(operand.summary) + "\n")) << operand.name;
    }
    for (const auto& option : command.options) {
      EXPECT_THAT(run.out, HasSubstr("\\fB" + Roff("--" + option.name) + "\\fR")) << option.name;
    }
  }
  for (const auto& option : ProgramLanguage().options)
    EXPECT_THAT(run.out, HasSubstr(Roff(option.summary)));
}

TEST(Manual, NamesEveryExitStatus) {
  const std::string page = RunLine("man").out;
  for (const auto& [status, text] : Zelk::Tool::ExitStatusTexts()) {
    EXPECT_THAT(page, HasSubstr("\n\\fB" + std::to_string(status) + "\\fR\n" + text + "\n"));
  }
}

TEST(Manual, NamesTheCommandsOfSessions) {
  const std::string page = RunLine("man").out;
  std::size_t named = 0;
  for (const Command& command : Zelk::Tool::SessionLanguage().commands) {
    if (ProgramLanguage().Find(command.name) != nullptr) continue;
    EXPECT_THAT(page, HasSubstr("\\fB" + command.name + "\\fR"));
    EXPECT_THAT(page, HasSubstr("\n" + Roff(command.summary) + "."));
    ++named;
  }
  EXPECT_GT(named, 0U);
}

TEST(Manual, NamesAreNotHyphenated) {
  EXPECT_THAT(RunLine("man").out, HasSubstr("\n.nh\n"));
}

TEST(Manual, TextLinesAreNeverRequests) {
  std::istringstream page(RunLine("man").out);
  for (std::string line; std::getline(page, line);) {
    if (line.empty() || (line[0] != '.' && line[0] != '\'')) continue;
    EXPECT_THAT(line, testing::MatchesRegex("\\.(TH|SH|SS|TP|PP|RS|RE|B|br|ad|nh)( .*)?"));
  }
}
