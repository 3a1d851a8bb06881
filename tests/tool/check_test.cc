#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "tool/tool_run.h"

using Zelk::Testing::kDataFolder;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

struct SyntaxError {
  const char* what;
  std::string text;
  std::string place;
  /// The code and the offset that the service answers.
  std::string code_and_offset;
};

const SyntaxError kSyntaxErrors[] = {
    {"an empty file", "", "1:1", "1 at 0"},
    {"a blank file", "\n\n  ", "3:3", "1 at 4"},
    {"the first byte", "?", "1:1", "3 at 0"},
    {"the first line", "{\"a\": ?}", "1:7", "3 at 6"},
    {"a later line", "{\n  \"a\": 1,\n  \"b\": ?\n}", "3:8", "3 at 19"},
    {"the first column of a line", "{\n\"a\": 1,\n?", "3:1", "4 at 10"},
    {"bytes, not characters", "{\"n\u00e4\": ?}", "1:9", "3 at 8"},
    {"carriage returns", "{\r\n\"a\":\r\n?", "3:1", "3 at 9"},
    {"the end of the file", "{\"a\": 1", "1:8", "6 at 7"},
    {"the end of the file behind a line end", "{\"a\": 1\n", "2:1", "6 at 8"},
    {"behind the root", "{}\n{}", "2:1", "2 at 3"},
};

}  // namespace

TEST(Check, TellsLineAndColumnOfASyntaxError) {
  const TempFolder folder;
  for (const SyntaxError& row : kSyntaxErrors) {
    const std::string path = folder.Write("file.json", row.text);
    const ToolRun run = RunTool({"check", path});
    EXPECT_EQ(run.out, path + ":" + row.place + ": Metamodel source file parse error : " +
                           row.code_and_offset + " [zelk.metadata.metamodel.parse.error]\n")
        << row.what;
    EXPECT_EQ(run.status, 1) << row.what;
  }
}

TEST(Check, TellsLineAndColumnFarInsideAFile) {
  const TempFolder folder;
  const std::string lines(200000, '\n');
  const std::string path = folder.Write("file.json", lines + "  ?");
  EXPECT_EQ(RunTool({"check", path}).out,
            path +
                ":200001:3: Metamodel source file parse error : 3 at 200002 "
                "[zelk.metadata.metamodel.parse.error]\n");
}

TEST(Check, AFolderHasAMessageButNoLine) {
  const TempFolder folder;
  const std::string path = folder.Path("");
  EXPECT_EQ(RunTool({"check", path}).out, path +
                                              ": Metamodel source file parse error : 1 at 0 "
                                              "[zelk.metadata.metamodel.parse.error]\n");
}

TEST(Check, LoadsEveryFileByItself) {
  const std::string path = kDataFolder + "/network.json";
  const ToolRun run = RunTool({"check", path, path});
  EXPECT_EQ(run.out, path + ": ok\n" + path + ": ok\n");
  EXPECT_EQ(run.status, 0);
}

TEST(Check, WritesNothingOnStandardErrorAboutABadFile) {
  const ToolRun run = RunTool({"check", kDataFolder + "/truncated.json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
}

TEST(Check, ShowsTheArgumentsThatAnUncataloguedMessageHasNoPlaceFor) {
  const TempFolder folder;
  const std::string path = folder.Write("file.json", R"({"cli": [{"type": "foo"}]})");
  const ToolRun run = RunTool({"check", path});
  EXPECT_EQ(run.out,
            path + ": Unknown message. [zelk.metadata.cli.json.invalid.node.type: type]\n");
  EXPECT_EQ(run.status, 1);
}
