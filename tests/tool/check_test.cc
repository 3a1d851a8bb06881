#include <sstream>

#include <gmock/gmock.h>

#include "support/temp_folder.h"
#include "tool/check_json.h"
#include "tool/tool_run.h"

using testing::HasSubstr;
using Zelk::Testing::CheckedJson;
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
  std::string code;
  std::string offset;
  std::string words;
};

/// What was printed but for the lines of the file.
std::string WithoutExcerpts(const std::string& out) {
  std::istringstream lines(out);
  std::string kept;
  for (std::string line; std::getline(lines, line);) {
    if (line.find(" | ") == std::string::npos) kept += line + '\n';
  }
  return kept;
}

const SyntaxError kSyntaxErrors[] = {
    {"a zero byte", std::string("\0", 1), "1:1", "1", "0", "The document is empty."},
    {"the first byte", "?", "1:1", "3", "0", "Invalid value."},
    {"the first line", "{\"a\": ?}", "1:7", "3", "6", "Invalid value."},
    {"a later line", "{\n  \"a\": 1,\n  \"b\": ?\n}", "3:8", "3", "19", "Invalid value."},
    {"the first column of a line", "{\n\"a\": 1,\n?", "3:1", "4", "10",
     "Missing a name for object member."},
    {"bytes, not characters", "{\"n\u00e4\": ?}", "1:9", "3", "8", "Invalid value."},
    {"carriage returns", "{\r\n\"a\":\r\n?", "3:1", "3", "9", "Invalid value."},
    {"the end of the file", "{\"a\": 1", "1:8", "6", "7",
     "The file ends too early. Missing a comma or '}' after an object member."},
    {"the end of the file after a line end", "{\"a\": 1\n", "2:1", "6", "8",
     "The file ends too early. Missing a comma or '}' after an object member."},
    {"a string without end", "{\"a", "1:4", "11", "3",
     "The file ends too early. Missing a closing quotation mark in string."},
    {"a line break in a string", "{\"a\nb\": 1}", "1:4", "10", "3",
     "A string is not closed before the end of the line. A line break in it is written \\n."},
    {"a tab in a string", "{\"a\tb\": 1}", "1:4", "10", "3",
     "A control character must be written as \\u00XX."},
    {"a wrong escape", "{\"a\\q\": 1}", "1:4", "10", "3", "Invalid escape character in string."},
    {"a byte order mark", "\xef\xbb\xbf{}", "1:1", "3", "0",
     "The file begins with a byte order mark, which JSON does not allow. Save it as UTF-8 without "
     "one."},
    {"UTF-16 with a mark", std::string("\xff\xfe{\0}\0", 6), "1:1", "3", "0",
     "The file is in UTF-16 or UTF-32. Save it as UTF-8."},
    {"UTF-16 without one", std::string("{\0}\0", 4), "1:2", "4", "1",
     "The file is in UTF-16 or UTF-32. Save it as UTF-8."},
    {"a comma before a brace", "{\"a\": 1, }", "1:10", "4", "9",
     "The last comma before the closing bracket is one too many."},
    {"a comma before a bracket", "[1,\n]", "2:1", "3", "4",
     "The last comma before the closing bracket is one too many."},
    {"no value before a bracket", "[}", "1:2", "3", "1", "Invalid value."},
    {"a line break in a number", "[1.\n2]", "1:4", "14", "3", "Miss fraction part in number."},
    {"a comment", "{ // x\n}", "1:3", "4", "2", "JSON has no comments."},
    {"single quotes", "{'a': 1}", "1:2", "4", "1", "A string must be in double quotes."},
    {"after the root", "{}\n{}", "2:1", "2", "3",
     "The document root must not be followed by other values."},
};

}  // namespace

TEST(Check, ReportsLineAndColumnOfASyntaxError) {
  const TempFolder folder;
  for (const SyntaxError& row : kSyntaxErrors) {
    const std::string path = folder.Write("file.json", row.text);
    const ToolRun run = RunTool({"check", path});
    EXPECT_EQ(WithoutExcerpts(run.out), path + ":" + row.place + ": error: " + row.words +
                                            " [zelk.metadata.metamodel.parse.error]\n")
        << row.what;
    EXPECT_EQ(run.status, 1) << row.what;
    const auto json = CheckedJson(path);
    const auto& arguments = json["files"][0]["messages"][0]["arguments"];
    EXPECT_EQ(arguments[0].GetString(), row.code) << row.what;
    EXPECT_EQ(arguments[1].GetString(), row.offset) << row.what;
  }
}

TEST(Check, ReportsLineAndColumnFarInsideAFile) {
  const TempFolder folder;
  const std::string lines(200000, '\n');
  const std::string path = folder.Write("file.json", lines + "  ?");
  EXPECT_EQ(RunTool({"check", path}).out,
            path +
                ":200001:3: error: Invalid value. [zelk.metadata.metamodel.parse.error]\n"
                "  200001 |   ?\n"
                "         |   ^\n");
}

TEST(Check, LoadsEveryFileByItself) {
  const std::string path = kDataFolder + "/network.json";
  const ToolRun run = RunTool({"check", path, path});
  EXPECT_EQ(run.out, path + ": ok\n" + path + ": ok\n2 files: 2 ok\n");
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
  EXPECT_THAT(run.out, testing::StartsWith(
                           path + ":1:19: error: The type of a node is neither namespace nor "
                                  "command. "
                                  "[zelk.metadata.cli.json.invalid.node.type: type] "
                                  "at /cli/0/type\n"));
  EXPECT_EQ(run.status, 1);
}

TEST(Check, SeparatesErrorsFromNotes) {
  const TempFolder folder;
  const std::string path =
      folder.Write("file.json", R"({"cli": [{"type": "command", "path": "", "name": "n",
 "description": "", "node_metadata": {"service_id": "s", "operation_id": "o", "options": 1}}]})");
  const std::string out = RunTool({"check", path}).out;
  EXPECT_THAT(out, testing::StartsWith(path + ":2:38: note: Json parse missing field: formatter " +
                                       "[zelk.metadata.json.missing.field] "
                                       "at /cli/0/node_metadata\n  2 |  \"description\""));
  EXPECT_THAT(out, HasSubstr(path + ":2:90: error: Json parse invalid field: options " +
                             "[zelk.metadata.json.invalid.field] "
                             "at /cli/0/node_metadata/options\n  2 | ..."));
}

TEST(Check, WhatCostsAValueButNotTheLoadIsAWarning) {
  const std::string path = kDataFolder + "/several_messages.json";
  const ToolRun run = RunTool({"check", path});
  EXPECT_THAT(run.out, HasSubstr(path + ":28:28: warning: Json parse invalid field: value "));
  EXPECT_THAT(run.out, HasSubstr(path + ":47:39: error: Json parse invalid enum value: "));
}

TEST(Check, ReadsStandardInputOnceHoweverOftenItIsAskedFor) {
  const ToolRun run = RunTool({"check", "-", "-"}, R"({"cli": 1})");
  const std::string report =
      "<stdin>:1:9: error: A part of a node has the wrong JSON type. "
      "[zelk.metadata.cli.json.invalid.field: cli] at /cli\n"
      "  1 | {\"cli\": 1}\n"
      "    |         ^\n";
  EXPECT_EQ(run.out, report + report + "2 files: 0 ok, 2 with errors\n");
  EXPECT_EQ(RunTool({"check", "-"}, R"({"cli": []})").out, "<stdin>: ok\n");
}

TEST(Check, CommandsForGitHubAreEscaped) {
  const TempFolder folder;
  const std::string path =
      folder.Write("a,b:c%.json",
                   R"({"authentication": {"product": 1, "component": {"name": "c", "schemes": {},
          "operations": {"100%\r\n::error::\u001b": []}}}})");
  const ToolRun run = RunTool({"check", "--output", "github", path});
  const std::string file = "file=" + folder.Path("a%2Cb%3Ac%25.json");
  const std::string id = "100%25%0D%0A::error::\\x1b";
  EXPECT_EQ(
      run.out,
      "::error " + file + ",line=1,col=32,title=zelk.metadata.json.invalid.field::" +
          "Json parse invalid field: product (at /authentication/product)\n" + "::error " + file +
          ",line=2,col=26,title=" + "zelk.metadata.authentication.json.invalid.operation.id%3A " +
          "100%25%0D%0A%3A%3Aerror%3A%3A\\x1b::An operation id has no full stop, or " +
          "nothing before or after its last one. " + "(at /authentication/component/operations/" +
          id + ")\n");
  EXPECT_EQ(RunTool({"check", "--output", "github", kDataFolder + "/network.json"}).out, "");
}

TEST(Check, AnOutputThatItDoesNotHaveIsWrongUsage) {
  EXPECT_EQ(RunTool({"check", "--output", "table", "x.json"}).status, 2);
}

TEST(Check, NotesAreNoticesInCommandsForGitHub) {
  const TempFolder folder;
  const std::string path =
      folder.Write("file.json", R"({"cli": [{"type": "command", "path": "", "name": "n",
 "description": "", "node_metadata": {"service_id": "s", "operation_id": "o", "options": 1}}]})");
  const std::string out = RunTool({"check", "--output", "github", path}).out;
  EXPECT_THAT(out, testing::StartsWith("::notice file=" + path + ",line=2,col=38,"));
  EXPECT_THAT(out, HasSubstr("\n::error file=" + path + ",line=2,col=90,"));
}

TEST(Check, ReportsPlacesInAuthenticationFiles) {
  struct Row {
    const char* component;
    const char* message;
    const char* pointer;
  };

  const Row rows[] = {
      {R"("services": {"a.": []})", "[zelk.metadata.authentication.json.invalid.service.id: a.]",
       "/authentication/component/services/a."},
      {R"("operations": {"a": []})", "[zelk.metadata.authentication.json.invalid.operation.id: a]",
       "/authentication/component/operations/a"},
      {R"("packages": {"a": ["x"]})", "unknown.schema.name",
       "/authentication/component/packages/a/0"},
      {R"("schemes": {"s": {"authenticationScheme": "t", "type": "sessionAware"}})",
       "missing field: sessionManager", "/authentication/component/schemes/s"},
  };
  const TempFolder folder;
  for (const Row& row : rows) {
    const std::string path = folder.Write(
        "file.json", R"({"authentication": {"product": 1, "component": {"name": "c", )" +
                         std::string(row.component) + "}}}");
    const std::string out = RunTool({"check", path}).out;
    EXPECT_THAT(out, HasSubstr(row.message));
    EXPECT_THAT(out, HasSubstr(std::string(" at ") + row.pointer + "\n"));
  }
}
