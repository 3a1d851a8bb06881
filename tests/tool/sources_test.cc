#include <gtest/gtest.h>

#include "host/source_argument.h"
#include "support/file_text.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::ParseSourceArgument;
using Zelk::Tool::SourceArgument;

namespace {

struct Row {
  const char* text;
  const char* id;
  const char* path;
};

const Row kRows[] = {
    {"inventory.json", "inventory", "inventory.json"},
    {"some/folder/inventory.json", "inventory", "some/folder/inventory.json"},
    {"inventory", "inventory", "inventory"},
    {"a.b.json", "a.b", "a.b.json"},
    {".hidden", ".hidden", ".hidden"},
    {"id=inventory.json", "id", "inventory.json"},
    {"id=some/folder/a=b.json", "id", "some/folder/a=b.json"},
    {"a=b.json", "a", "b.json"},
    {"./a=b.json", "a=b", "./a=b.json"},
    {"some/a=b/c.json", "c", "some/a=b/c.json"},
    {"=b.json", "=b", "=b.json"},
    {"id=", "id", ""},
    {"", "", ""},
};

}  // namespace

TEST(Sources, AnIdStandsBeforeTheFirstEqualsSignUnlessItIsPartOfAPath) {
  for (const Row& row : kRows) {
    const SourceArgument source = ParseSourceArgument(row.text);
    EXPECT_EQ(source.id, row.id) << row.text;
    EXPECT_EQ(source.path, row.path) << row.text;
  }
}

TEST(Sources, APathWithAnEqualsSignIsLoaded) {
  const TempFolder folder;
  const std::string path = folder.Write("a=b.json", FileText(kDataFolder + "/network.json"));
  const ToolRun run = RunTool({"list", "sources", "--source", path, "--source=x=" + path});
  EXPECT_EQ(run.out, "a=b\nx\n");
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Sources, TheFirstOfTwoSourcesWithOneIdStays) {
  const ToolRun run = RunLine("list components --source a=" + kDataFolder +
                              "/inventory.json --source a=" + kDataFolder + "/network.json");
  EXPECT_EQ(run.out, "com.acme\n");
  EXPECT_EQ(run.status, 1);
}

TEST(Sources, AFailedSourceTurnsTheStatusOfAnUnknownIdIntoItsOwn) {
  const ToolRun run = RunLine("get component nope --source missing.json");
  EXPECT_EQ(run.status, 1) << "the component may have been in the missing file";
}

TEST(Sources, TheFirstSourceInTheOrderOfTheIdsAnswers) {
  const std::string inventory = kDataFolder + "/inventory.json";
  const std::string line = "get source b --source b=" + inventory + " --source a=" + inventory;
  EXPECT_EQ(RunLine(line).out, "source b\n    Type: LOCAL_FILE\n    File: " + inventory + "\n");
  EXPECT_EQ(RunLine("list components --source b=" + inventory + " --source a=" + inventory).out,
            "com.acme\ncom.acme\n");
}
