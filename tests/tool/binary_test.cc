#include <string>

#include <gtest/gtest.h>

#include "tool/shell_run.h"

// The program as a process: what only main(), the shell and the system can spoil.

using Zelk::Testing::kDataFolder;
using Zelk::Testing::RunShell;
using Zelk::Testing::ToolRun;

namespace {

const std::string kInventory = " --source " + kDataFolder + "/inventory.json ";

}  // namespace

TEST(Binary, AnswersOnStandardOutput) {
  const ToolRun run = RunShell("$tool list components" + kInventory);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "com.acme\n");
  EXPECT_EQ(run.err, "");
}

TEST(Binary, ComplainsOnStandardError) {
  const ToolRun run = RunShell("$tool get component nope" + kInventory);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelk-metadata: Metamodel component not found: nope\n");
}

TEST(Binary, EndsWithTheDocumentedStatus) {
  EXPECT_EQ(RunShell("$tool --version").status, 0);
  EXPECT_EQ(RunShell("$tool check missing.json").status, 1);
  EXPECT_EQ(RunShell("$tool").status, 2);
  EXPECT_EQ(RunShell("$tool list gadgets").status, 3);
}

TEST(Binary, ReportsOutputThatCannotBeWritten) {
  const ToolRun run = RunShell("$tool list components" + kInventory + ">/dev/full");
  EXPECT_EQ(run.status, 4);
  EXPECT_EQ(run.err, "zelk-metadata: the output could not be written\n");
}

TEST(Binary, EndsQuietlyWhenTheReaderIsGone) {
  const std::string line =
      "exec 3> >(true); wait $!; $tool get component com.acme" + kInventory + ">&3; echo $?";
  for (const char* before : {"", "trap '' PIPE; "}) {
    const ToolRun run = RunShell(before + line);
    EXPECT_EQ(run.out, "141\n") << before << "the status of a process that the signal ended";
    EXPECT_EQ(run.err, "") << before;
  }
}

TEST(Binary, PassesArgumentsOnByteForByte) {
  const ToolRun run = RunShell("$tool get component $'caf\\xe9 \\t' ''");
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err,
            "zelk-metadata: Metamodel component not found: caf\\xe9 \\x09\n"
            "zelk-metadata: Metamodel component not found: \n");
}
