#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>

#include <gmock/gmock.h>

#include "support/builders.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// The sources of a user who gives none.

using testing::HasSubstr;
using testing::StartsWith;
using Zelk::Testing::Component;
using Zelk::Testing::MetamodelFile;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

namespace fs = std::filesystem;

/// A project of its own for each test: the working folder is `project/inner`.
class DefaultSources : public testing::Test {
 protected:
  DefaultSources() {
    fs::create_directories(folder_.Path("project/inner/api"));
    folder_.Write("project/a.json", MetamodelFile(Component("com.a")));
    folder_.Write("project/inner/api/b.json", MetamodelFile(Component("com.b")));
    folder_.Write("c.json", MetamodelFile(Component("com.c")));
    fs::current_path(folder_.Path("project/inner"));
    unsetenv("ZELK_METADATA_PATH");
  }

  ~DefaultSources() override {
    fs::current_path(before_);
    unsetenv("ZELK_METADATA_PATH");
  }

  void WriteProject(const std::string& text) const {
    folder_.Write("project/.zelk-metadata.json", text);
  }

  TempFolder folder_;

 private:
  fs::path before_ = fs::current_path();
};

const std::string kList = "list components";

}  // namespace

TEST_F(DefaultSources, ProjectFileIsFoundFromTheWorkingFolderUpwards) {
  WriteProject(R"({"lint": {"x": [1]}, "sources": ["a.json", "id=inner/api", ")" +
               folder_.Path("c.json") + R"("], "$note": 1})");
  EXPECT_EQ(RunLine(kList).out, "com.a\ncom.c\ncom.b\n");
  EXPECT_EQ(RunLine("list sources").out, "a\nc\nid/b\n");
  EXPECT_THAT(RunLine("get source a").out, HasSubstr("File: ../a.json\n"));
  fs::current_path(folder_.Path("project"));
  EXPECT_THAT(RunLine("get source a").out, HasSubstr("File: a.json\n"));
  fs::current_path(folder_.Path(""));
  EXPECT_EQ(RunLine(kList).out, "") << "it is below";
}

TEST_F(DefaultSources, NearestProjectFileIsTheOnlyOne) {
  WriteProject(R"({"sources": ["a.json"]})");
  folder_.Write("project/inner/.zelk-metadata.json", R"({"sources": ["./api"]})");
  EXPECT_EQ(RunLine(kList).out, "com.b\n");
  folder_.Write("project/inner/.zelk-metadata.json", "{}");
  EXPECT_EQ(RunLine(kList).out, "");
}

TEST_F(DefaultSources, VariableComesBeforeTheProjectFile) {
  WriteProject(R"({"sources": ["a.json"]})");
  setenv("ZELK_METADATA_PATH", "api:x=../../c.json::", 1);
  EXPECT_EQ(RunLine("list sources").out, "b\nx\n");
  setenv("ZELK_METADATA_PATH", "", 1);
  EXPECT_EQ(RunLine("list sources").out, "a\n");
}

TEST_F(DefaultSources, SourcesAreAddedUnlessDefaultsAreLeftOut) {
  WriteProject(R"({"sources": ["a.json"]})");
  EXPECT_EQ(RunLine(kList + " --source ../../c.json").out, "com.a\ncom.c\n");
  EXPECT_EQ(RunLine(kList + " --no-default-sources --source ../../c.json").out, "com.c\n");
  EXPECT_EQ(RunLine("fingerprint --no-default-sources").status, 2);
}

TEST_F(DefaultSources, DefaultThatIsGivenIsLoadedOnce) {
  WriteProject(R"({"sources": ["a.json"]})");
  const ToolRun run = RunLine("list sources --source " + folder_.Path("project/a.json"));
  EXPECT_EQ(run.out, "a\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(RunLine("list sources --source x=../a.json").out, "a\nx\n");
}

TEST_F(DefaultSources, BrokenProjectFileIsAnErrorWithItsPlace) {
  const std::pair<const char*, const char*> rows[] = {
      {"{\n  \"sources\": [\"a.json\",]}",
       ":2:24: The last comma before the closing bracket is one too many.\n"},
      {"[]", ":1:1: an object is needed here\n"},
      {R"({"sources": "a.json"})", ":1:13: 'sources' must be an array\n"},
      {R"({"sources": ["a.json", 1]})", ":1:24: a source is a string\n"},
      {R"({"source": ["a.json"]})", ":1:12: unknown key 'source'; did you mean sources?\n"},
      {R"({"sources": ["a.json", "x="]})", ":1:24: a source needs a path\n"},
      {R"({"sources": ["a\u0000b"]})", ":1:14: a source needs a path\n"},
      {R"({"sources": ["-"]})", ":1:14: standard input cannot be a default source\n"},
  };
  for (const auto& [text, complaint] : rows) {
    WriteProject(text);
    const ToolRun run = RunLine(kList + " --source ../../c.json");
    EXPECT_EQ(run.err, std::string("zelk-metadata: ../.zelk-metadata.json") + complaint);
    EXPECT_EQ(run.status, 1) << text;
    EXPECT_EQ(run.out, "com.c\n") << "what is given is loaded all the same";
  }
  EXPECT_EQ(RunLine("docs --source ../../c.json --output-file no/page.html").status, 4)
      << "the page is lost";
  EXPECT_EQ(RunLine(kList + " --no-default-sources --source ../../c.json").status, 0);
  EXPECT_EQ(RunLine("explain zelk.metadata.json.missing.field").status, 0);
}

TEST_F(DefaultSources, ProjectFileThatCannotBeReadIsAnError) {
  const std::string path = folder_.Path("project/.zelk-metadata.json");
  const std::string shown = "zelk-metadata: ../.zelk-metadata.json: ";
  fs::create_symlink("nowhere", path);
  EXPECT_THAT(RunLine(kList).err, StartsWith(shown + "No such file or directory\n"));
  fs::remove(path);
  fs::create_directory(path);
  EXPECT_THAT(RunLine(kList).err, StartsWith(shown + "it is not a regular file\n"));
  fs::remove(path);
  WriteProject(std::string(2U << 20U, ' '));
  EXPECT_THAT(RunLine(kList).err, StartsWith(shown + "it is larger than 1 MiB\n"));
  WriteProject(std::string(1U << 20U, '['));
  EXPECT_EQ(RunLine(kList).status, 1);
}

TEST_F(DefaultSources, StandardInputIsNone) {
  setenv("ZELK_METADATA_PATH", "api:-", 1);
  const ToolRun run = RunLine(kList);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "zelk-metadata: ZELK_METADATA_PATH: standard input cannot be a default source\n");
}

TEST_F(DefaultSources, SessionStartsWithThem) {
  WriteProject(R"({"sources": ["a.json"]})");
  EXPECT_EQ(RunTool({"shell"}, "list sources\ncreate ../../c.json\nlist sources\n").out,
            "a\na\nc\n");
  EXPECT_EQ(RunTool({"shell", "--no-default-sources"}, "list sources\n").out, "");
  WriteProject("{");
  EXPECT_EQ(RunTool({"shell"}, "list sources\n").status, 1);
}

TEST_F(DefaultSources, NamesAreCompletedWithoutASource) {
  WriteProject(R"({"sources": ["a.json"]})");
  const auto complete = [](const std::vector<std::string>& words) {
    std::vector<std::string> args{"complete", "--"};
    args.insert(args.end(), words.begin(), words.end());
    return RunTool(args).out;
  };
  EXPECT_EQ(complete({"get", "component", ""}), "words\ncom.a\t\n");
  EXPECT_EQ(complete({"get", "component", "--source", "../../c.json", ""}),
            "words\ncom.a\t\ncom.c\t\n");
  EXPECT_EQ(complete({"get", "--no-default-sources", "component", ""}), "words\n");
  EXPECT_THAT(complete({"list", "--no-def"}), StartsWith("words\n--no-default-sources\t"));
  WriteProject("{");
  EXPECT_EQ(complete({"get", "component", ""}), "words\n");
}
