#include <filesystem>
#include <sstream>
#include <sys/stat.h>

#include <gmock/gmock.h>

#include "host/input_file.h"
#include "host/source_argument.h"
#include "support/builders.h"
#include "support/file_text.h"
#include "support/temp_folder.h"
#include "tool/shell_run.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::FileText;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunShell;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::InputFile;
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
  EXPECT_EQ(RunTool({"list", "sources", "--source", folder.Path("")}).out, "a\nb\ninner/c\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "x=" + folder.Path("")}).out,
            "x/a\nx/b\nx/inner/c\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "inner=" + folder.Path("inner")}).out,
            "inner/c\n");
}

TEST(Folders, IdIsThePathBelowTheFolderHoweverItIsWritten) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.Path("svc/foo/deep"));
  std::filesystem::create_directories(folder.Path("svc/bar"));
  folder.Write("svc/foo/deep/metamodel.v2.json", MetamodelFile(Component("com.foo")));
  folder.Write("svc/bar/metamodel.json", MetamodelFile(Component("com.bar")));
  for (const char* path : {"svc", "svc/", "svc//", "./svc", "svc/foo/../"}) {
    const ToolRun run = RunTool({"list", "sources", "--source", folder.Path(path)});
    EXPECT_EQ(run.out, "bar/metamodel\nfoo/deep/metamodel.v2\n") << path;
    EXPECT_EQ(run.err, "") << path;
  }
}

TEST(Sources, IdThatIsTakenNamesBothFilesAndHowToGiveAnother) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("foo"));
  std::filesystem::create_directory(folder.Path("bar"));
  const std::string foo = folder.Write("foo/a.json", MetamodelFile(Component("com.foo")));
  const std::string bar = folder.Write("bar/a.json", MetamodelFile(Component("com.bar")));
  for (const char* command : {"list components", "tree"}) {
    auto words = Zelk::Testing::Words(command);
    words.insert(words.end(), {"--source", foo, "--source", bar});
    const ToolRun run = RunTool(words);
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_THAT(run.out, HasSubstr("com.foo\n"));
    EXPECT_THAT(run.err, StartsWith("zelk-metadata: " + bar + ": " + foo +
                                    " has the id 'a', too; write ID=" + bar +
                                    " to give another [zelk.metada.metamodel.source.exists]\n"));
  }
}

TEST(Folders, HelpSaysThatTheyAreReadToAnyDepth) {
  EXPECT_THAT(RunLine("--help").out, HasSubstr("to any depth"));
  EXPECT_THAT(RunLine("man").out, HasSubstr("to any depth"));
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
            "zelk-metadata: standard input:2:1: Invalid value. "
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

TEST(Unreadable, ReasonIsTheSystemsText) {
  const TempFolder folder;
  std::filesystem::create_symlink("loop.json", folder.Path("loop.json"));
  std::filesystem::create_directory(folder.Path("inner"));
  const std::pair<std::string, std::string> rows[] = {
      {"nope.json", "No such file or directory"},
      {"loop.json", "Too many levels of symbolic links"},
      {"inner/../nope/a.json", "No such file or directory"},
  };
  for (const auto& [name, reason] : rows) {
    const std::string path = folder.Path(name);
    const ToolRun run = RunTool({"list", "sources", "--source", path});
    EXPECT_EQ(run.err, "zelk-metadata: " + path + ": " + reason + "\n");
    EXPECT_EQ(run.status, 1);
  }
}

TEST(Unreadable, FileWithoutPermissionIsReportedAndTheOthersAreLoaded) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  folder.Write("b.json", MetamodelFile(Component("com.b")));
  std::filesystem::permissions(folder.Path(""), std::filesystem::perms::all);
  std::filesystem::permissions(folder.Path("b.json"), std::filesystem::perms::none);
  // Root may read everything.
  const ToolRun run = RunShell(
      "as=; [ $(id -u) != 0 ] || as='setpriv --reuid=65534'\n"
      "$as $tool list components --source " +
      folder.Path(""));
  EXPECT_EQ(run.out, "com.a\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err,
              StartsWith("zelk-metadata: " + folder.Path("b.json") + ": Permission denied\n"));
}

TEST(Pipes, AreReadAsStandardInputIs) {
  const ToolRun run = RunShell("cd " + kDataFolder +
                               "; $tool list components --source inventory=<(cat inventory.json)"
                               " --source <(cat network.json)");
  EXPECT_EQ(run.out, "com.acme.network\ncom.acme\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(RunShell("$tool tree --depth 1 --source <(cat " + kDataFolder + "/network.json)").out,
            RunTool({"tree", "--depth", "1", "--source", kDataFolder + "/network.json"}).out);
}

TEST(Pipes, MayHaveANameAndAWriterThatComesLater) {
  const ToolRun run =
      RunShell("cd $(dirname $0); mkfifo pipe.json; (sleep 0.1; cat " + kDataFolder +
               "/network.json > pipe.json) &\n" + "$tool list sources --source pipe.json; wait");
  EXPECT_EQ(run.out, "pipe\n");
  EXPECT_EQ(run.err, "");
}

TEST(Pipes, InvalidTextFailsAsAFileWithTheNameOfThePipe) {
  const ToolRun run = RunShell(
      "cd $(dirname $0); mkfifo pipe.json; echo ? > pipe.json &\n"
      "$tool list sources --source pipe.json");
  EXPECT_THAT(run.err, StartsWith("zelk-metadata: pipe.json:1:1: Invalid value. [zelk"));
  EXPECT_EQ(run.status, 1);
}

TEST(Pipes, ThoseInFoldersAreNotRead) {
  const TempFolder folder;
  folder.Write("a.json", MetamodelFile(Component("com.a")));
  ASSERT_EQ(mkfifo(folder.Path("b.json").c_str(), 0600), 0);
  const ToolRun run = RunTool({"list", "sources", "--source", folder.Path("")});
  EXPECT_EQ(run.out, "a\n");
  EXPECT_THAT(run.err, StartsWith("zelk-metadata: " + folder.Path("b.json") +
                                  ": it is not a regular file\n"));
}

TEST(Pipes, DevicesThatCannotBeReadSayWhy) {
  EXPECT_EQ(RunLine("list sources --source /proc/self/mem").status, 1);
  const TempFolder folder;
  const std::string path = folder.Path("socket");
  const ToolRun run = RunShell(
      "perl -MIO::Socket::UNIX -e 'IO::Socket::UNIX->new(Local => $ARGV[0], Listen => 1)' " + path +
      "; $tool list sources --source " + path);
  EXPECT_EQ(run.err, "zelk-metadata: " + path + ": No such device or address\n");
}

TEST(Pipes, CopyThatCannotBeWrittenSaysWhy) {
  const std::string list = "$tool list sources --source <(head -c 1000000 /dev/zero)";
  EXPECT_THAT(RunShell("trap '' XFSZ; ulimit -f 1; " + list).err,
              HasSubstr(": cannot be copied: File too large\n"));
}

TEST(Pipes, CopyThatCannotBeOpenedSaysWhy) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers open files of their own";
#endif
  EXPECT_EQ(RunShell("cd $(dirname $0); mkfifo pipe; echo > pipe &\n"
                     "prlimit --nofile=4 $tool list sources --source pipe 3>&-")
                .err,
            "zelk-metadata: pipe: cannot be copied: Too many open files\n");
}

TEST(Pipes, NoMoreThanTheLimitIsCopied) {
  std::istringstream in("12345");
  EXPECT_EQ(InputFile::Copy(in, 4).failure, "is larger than a file may be");
  std::istringstream again("1234");
  const auto copied = InputFile::Copy(again, 4);
  ASSERT_NE(copied.file, nullptr);
  EXPECT_EQ(FileText(copied.file->Path()), "1234");
}

TEST(Sources, EmptyPathIsWrongUsage) {
  for (const std::string text : {"", "id="}) {
    const ToolRun run = RunTool({"list", "sources", "--source", text});
    EXPECT_EQ(run.status, 2) << text;
    EXPECT_EQ(run.err, "zelk-metadata: --source: '" + text + "' has no path\n");
  }
  EXPECT_EQ(RunTool({"shell"}, "create ''\n").status, 2);
}
