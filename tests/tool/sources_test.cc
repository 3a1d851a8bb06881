#include <filesystem>

#include <gmock/gmock.h>

#include "host/source_argument.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
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

TEST(Sources, IdIsTheTextBeforeTheFirstEqualsSign) {
  for (const Row& row : kRows) {
    const SourceArgument source = ParseSourceArgument(row.text);
    EXPECT_EQ(source.id, row.id) << row.text;
    EXPECT_EQ(source.path, row.path) << row.text;
  }
}

TEST(Sources, PathMayHaveAnEqualsSign) {
  const TempFolder folder;
  const std::string path = folder.Write("a=b.json", FileText(kDataFolder + "/network.json"));
  const ToolRun run = RunTool({"list", "sources", "--source", path, "--source=x=" + path});
  EXPECT_EQ(run.out, "a=b\nx\n");
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Sources, SecondSourceWithTheSameIdIsRefused) {
  const ToolRun run = RunLine("list components --source a=" + kDataFolder +
                              "/inventory.json --source a=" + kDataFolder + "/network.json");
  EXPECT_EQ(run.out, "com.acme\n");
  EXPECT_EQ(run.status, 1);
}

TEST(Sources, FailedSourceDecidesTheStatus) {
  const ToolRun run = RunLine("get component nope --source missing.json");
  EXPECT_EQ(run.status, 1) << "the component may have been in the missing file";
}

TEST(Sources, SmallestIdAnswersFirst) {
  const std::string inventory = kDataFolder + "/inventory.json";
  const std::string line = "get source b --source b=" + inventory + " --source a=" + inventory;
  EXPECT_EQ(RunLine(line).out, "source b\n    Type: LOCAL_FILE\n    File: " + inventory + "\n");
  EXPECT_EQ(RunLine("list components --source b=" + inventory + " --source a=" + inventory).out,
            "com.acme\ncom.acme\n");
}

TEST(Folders, AllJsonFilesAreLoaded) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("inner"));
  std::filesystem::create_directory(folder.Path(".hidden"));
  for (const char* name :
       {"b.json", "a.json", "inner/c.json", "d.txt", ".e.json", ".hidden/f.json"}) {
    folder.Write(name, MetamodelFile(Component(name)));
  }
  EXPECT_EQ(RunTool({"list", "sources", "--source", folder.Path("")}).out, "a\nb\nc\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "x=" + folder.Path("")}).out,
            "x/a\nx/b\nx/c\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "inner=" + folder.Path("inner")}).out,
            "inner/c\n");
}

TEST(Folders, EmptyFolderIsAnError) {
  const TempFolder folder;
  const ToolRun run = RunTool({"list", "sources", "--source", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "zelk-metadata: " + folder.Path("") + ": this folder has no *.json file\n");
}

TEST(Folders, LinksToFilesAreLoadedLinksToFoldersAreNot) {
  const TempFolder folder;
  const TempFolder other;
  const std::string file = other.Write("b.json", MetamodelFile(Component("c")));
  std::filesystem::create_symlink(file, folder.Path("a.json"));
  std::filesystem::create_directory_symlink(other.Path(""), folder.Path("link"));
  std::filesystem::create_directory_symlink(folder.Path(""), folder.Path("round"));
  EXPECT_EQ(RunTool({"list", "sources", "--source", folder.Path("")}).out, "a\n");
}

TEST(Folders, BadFileIsReportedAndTheOthersAreLoaded) {
  const TempFolder folder;
  folder.Write("a.json", "?");
  folder.Write("b.json", MetamodelFile(Component("c")));
  const ToolRun run = RunTool({"list", "components", "--source", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "c\n");
  EXPECT_THAT(run.err, testing::EndsWith("\nzelk-metadata: 1 of 2 sources failed to load: " +
                                         folder.Path("a.json") + "\n"));
}

TEST(StandardInput, IsASource) {
  const std::string file = MetamodelFile(Component("c"));
  EXPECT_EQ(RunTool({"list", "components", "--source", "-"}, file).out, "c\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "-"}, file).out, "stdin\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "id=-"}, file).out, "id\n");
  EXPECT_EQ(RunTool({"tree", "--source", "-"}, file).out,
            "metamodel (1 component)\n    component c\n")
      << "which loads it more than once";
  EXPECT_EQ(
      RunTool({"list", "namespaces", "--source", "-"}, FileText(kDataFolder + "/commands.json"))
          .out,
      ".\nacme\nacme.machines\n");
}

TEST(StandardInput, InvalidTextFailsLikeAFile) {
  const ToolRun run = RunTool({"list", "components", "--source", "-"}, "\n?");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "zelk-metadata: standard input:2:1: Metamodel source file parse error : 3 at 1 "
            "[zelk.metadata.metamodel.parse.error]\n");
  EXPECT_EQ(RunTool({"list", "components", "--source", "-"}, "").status, 1);
}

TEST(StandardInput, IsReadOnlyOnce) {
  const ToolRun run = RunTool({"list", "components", "--source", "-", "--source", "x=-"},
                              MetamodelFile(Component("c")));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "c\n");
  EXPECT_THAT(run.err, StartsWith("zelk-metadata: standard input: can be read only once\n"));
}
