#include <filesystem>
#include <sstream>

#include <gmock/gmock.h>

#include "commands/table.h"
#include "shell/session.h"
#include "support/temp_folder.h"
#include "tool/check_json.h"
#include "tool/tool_run.h"

// What check adds to the messages of the library: what a file loads without, all mistakes of a
// file, and what helps to fix them.

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Zelk::Testing::CheckedJson;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Zelk::Tool::ExitStatus;
using Zelk::Tool::Shell::Session;

namespace {

constexpr char kGood[] = R"({"name": "good", "packages": {}})";
constexpr char kBroken[] = R"({"name": "bad", "schemes": {"card": {
  "authenticationScheme": "s", "type": "SESSIONLESS"}}, "packages": {"p": ["crad"], "q": ["x"]}})";

std::string Authentication(const std::string& parts) {
  return R"({"authentication": {)" + parts + "}}";
}

std::string Metamodel(const std::string& packages) {
  return R"({"metamodel": {"component": {"name": "c", "documentation": "", "metadata": {},
 "packages": [)" +
         packages + "]}}}";
}

std::string Structure(const std::string& rest) {
  return Metamodel(R"({"name": "p", "documentation": "", "metadata": {}, "enumerations": [],
 "services": [], "structures": [{"name": "s", "type": "structure", "documentation": "",
 "metadata": {}, "enumerations": [], )" +
                   rest + "}]}");
}

struct Part {
  const char* name;
  std::string text;
};

const Part kParts[] = {
    {"product", Authentication(std::string(R"("product": )") + kBroken)},
    {"product",
     Authentication(std::string(R"("component": )") + kGood + R"(, "product": )" + kBroken)},
    {"component",
     Authentication(std::string(R"("component": )") + kBroken + R"(, "product": )" + kGood)},
};

/// How often the text is in the other one.
std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

}  // namespace

TEST(CheckLeftOut, BrokenPartIsAWarningWithItsPlace) {
  for (const Part& part : kParts) {
    const ToolRun run = RunTool({"check", "-"}, part.text);
    EXPECT_EQ(run.status, 0) << part.text;
    const std::string left_out = "The " + std::string(part.name) + " is left out.\n";
    EXPECT_THAT(run.out, AllOf(HasSubstr(": warning: Authentication unknown schema name: id "),
                               HasSubstr(" at /authentication/" + std::string(part.name) +
                                         "/packages/p/0\n"),
                               HasSubstr("  Defined: card. " + left_out),
                               EndsWith("<stdin>: loads, with 2 warnings\n")))
        << part.text;
    const auto json = CheckedJson("-", part.text);
    EXPECT_STREQ(json["files"][0]["state"].GetString(), "warning");
    EXPECT_EQ(json["summary"]["warnings"].GetInt(), 1);
  }
}

TEST(CheckLeftOut, LoadsReportTheFirstMistakeOfThePart) {
  for (const Part& part : kParts) {
    const ToolRun run = RunTool({"list", "sources", "--source", "a=-"}, part.text);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "a\n");
    EXPECT_THAT(run.err, AllOf(StartsWith("zelk-metadata: standard input:2:"),
                               HasSubstr(": warning: Authentication unknown schema name: id ["),
                               EndsWith("The " + std::string(part.name) + " is left out.\n")));
    EXPECT_EQ(Count(run.err, "warning"), 1U) << run.err;
  }
}

TEST(CheckLeftOut, ReloadsReportItToo) {
  const TempFolder folder;
  const std::string path = folder.Write("a.json", Authentication(""));
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  Session session(Zelk::Tool::SessionLanguage(), {in, out, err});
  session.Run("create " + path);
  EXPECT_EQ(err.str(), "");
  folder.Write("a.json", kParts[0].text);
  EXPECT_EQ(session.Run("reload"), ExitStatus::kOk);
  EXPECT_THAT(err.str(), AllOf(HasSubstr("warning: Authentication unknown schema name: id "),
                               EndsWith("The product is left out.\n")));
  err.str("");
  session.Run("reload");
  EXPECT_EQ(err.str(), "") << "of a file that did not change";
}

TEST(CheckLeftOut, GoodPartsGiveNoWarning) {
  const std::string text =
      Authentication(std::string(R"("component": )") + kGood + R"(, "product": )" + kGood);
  EXPECT_EQ(RunTool({"check", "-"}, text).out, "<stdin>: ok\n");
  EXPECT_EQ(RunTool({"list", "sources", "--source", "-"}, text).err, "");
}

TEST(CheckLeftOut, ServiceWithoutPackageIsAWarning) {
  const std::string text = Authentication(
      R"("component": {"name": "c", "operations": {"power.start": []}, "packages": {}})");
  const ToolRun run = RunTool({"check", "-"}, text);
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, AllOf(HasSubstr("warning: A service id has no full stop"),
                             HasSubstr("The service is left out.\n")));
}

TEST(CheckLeftOut, ConstantThatIsNoTextIsAWarning) {
  const std::string text = Structure(R"("fields": [], "constants": [{"name": "k",
 "documentation": "", "type": {"category": "primitive", "type": "string"}, "value": 1}])");
  const ToolRun run = RunTool({"check", "-"}, text);
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, AllOf(HasSubstr("warning: Json parse invalid field: value"),
                             HasSubstr("  The value is left out.\n"),
                             EndsWith("<stdin>: loads, with 1 warning\n")));
}

TEST(CheckMistakes, AllMistakesOfAFileAreReported) {
  struct Row {
    const char* what;
    std::string text;
    std::size_t errors;
  };

  const std::string field = R"({"name": "f", "documentation": "", "metadata": {}, "type": )";
  const Row rows[] = {
      {"missing keys", Metamodel(R"({"name": "p"})"), 5},
      {"elements that are no objects", Metamodel("1, 2, 3"), 3},
      {"one in each field",
       Structure(R"("constants": [], "fields": [)" + field + R"({"category": "x"}}, )" + field +
                 R"({"category": "builtin", "primitive_type": "STRNG"}}, )" + field + R"({}}])"),
       3},
      {"types in types",
       Structure(R"("constants": [], "fields": [)" + field +
                 R"({"category": "generic", "generic_type": "map", "map_key_type": 1,
                     "map_value_type": {"category": "builtin", "primitive_type": "y"}}}])"),
       2},
      {"a constant without a type",
       Structure(R"("fields": 1, "constants": [{"name": "k", "documentation": "", "value": 2}])"),
       2},
      {"nodes", R"({"cli": [{"type": "x"}, {"type": 1}, {}, {"type": "namespace"}]})", 6},
      {"schemes that are no object, and nothing about their names",
       Authentication(R"("component": {"name": 1, "schemes": [], "packages": {"p": ["a", "b"]}})"),
       2},
      {"a broken scheme is defined all the same",
       Authentication(R"("component": {"name": "c", "schemes": {"a": 1},
                         "operations": {"o": ["a"], "p": ["b"]}, "packages": 1})"),
       5},
      {"both parts",
       Authentication(std::string(R"("component": )") + kBroken + R"(, "product": )" + kBroken), 4},
  };
  for (const Row& row : rows) {
    const ToolRun run = RunTool({"check", "-"}, row.text);
    EXPECT_EQ(run.status, 1) << row.what;
    EXPECT_EQ(Count(run.out, ": error: "), row.errors) << row.what << '\n' << run.out;
  }
}

TEST(CheckMistakes, OnlyAHundredMoreAreListed) {
  std::string elements = "1";
  for (int i = 0; i < 1000; ++i) elements += ", 1";
  const ToolRun run = RunTool({"check", "-"}, Metamodel(elements));
  EXPECT_EQ(Count(run.out, ": error: "), 102U);
  EXPECT_THAT(run.out, EndsWith("\n<stdin>: error: 900 more mistakes are not listed.\n"));
}

TEST(CheckMistakes, AllowedWordsAreListedTheNearestFirst) {
  const std::string field = R"("constants": [], "fields": [{"name": "f", "documentation": "",
 "metadata": {}, "type": {"category": "builtin", "primitive_type": "STRNG"}}])";
  EXPECT_THAT(RunTool({"check", "-"}, Structure(field)).out,
              HasSubstr("  Allowed: STRING, VOID, BOOLEAN, LONG, DOUBLE, BINARY, SECRET, "));
  EXPECT_THAT(RunTool({"check", "-"}, R"({"cli": [{"type": "Namespace"}]})").out,
              HasSubstr("  Allowed: namespace, command.\n"));
}

TEST(CheckMistakes, OfManySchemesOnlyTheNearestAreListed) {
  const std::string scheme = R"({"authenticationScheme": "s", "type": "SESSIONLESS"})";
  std::string schemes = "\"card\": " + scheme;
  for (int i = 0; i < 2000; ++i) schemes += ", \"scheme" + std::to_string(i) + "\": " + scheme;
  const std::string packages = R"("packages": {"p": ["crad"]})";
  const std::string text = Authentication(R"("component": {"name": "c", "schemes": {)" + schemes +
                                          "}, " + packages + "}");
  EXPECT_THAT(RunTool({"check", "-"}, text).out, HasSubstr("  Defined: card.\n"));
  const std::string none = Authentication(R"("component": {"name": "c", )" + packages + "}");
  EXPECT_THAT(RunTool({"check", "-"}, none).out, Not(HasSubstr("Defined")));
}

TEST(CheckMistakes, MissingKeyMentionsTheMisspeltOne) {
  const std::string out = RunTool({"check", "-"}, R"({"metamodel": {"component": {"name": "c",
 "documentaton": "",
 "metadata": {}, "packages": []}}})")
                              .out;
  EXPECT_THAT(out, HasSubstr("missing field: documentation"));
  EXPECT_THAT(out, HasSubstr("  Line 2 has \"documentaton\", which is not a key of the format.\n"));
  EXPECT_THAT(RunTool({"check", "-"}, R"({"metamodel": {"x": 1}})").out, Not(HasSubstr("Line")));
}

TEST(CheckRoots, FileOfNoDomainNamesTheRootKeys) {
  struct Row {
    const char* text;
    const char* place;
    const char* words;
  };

  const std::string keys = "metamodel, authentication or cli";
  const Row rows[] = {
      {"", "1:1", "it is empty. It must be an object with the key "},
      {" \n", "1:1", "it is empty. It must be an object with the key "},
      {"[]", "1:1", "it must be an object with the key "},
      {"null", "1:1", "it must be an object with the key "},
      {R"({"name": "x", "scripts": {}})", "1:1", "the object does not have the key "},
      {R"({"Metamodel": {}})", "1:2", "the object does not have the key "},
  };
  for (const Row& row : rows) {
    const ToolRun check = RunTool({"check", "-"}, row.text);
    EXPECT_EQ(check.status, 1) << row.text;
    const std::string message = std::string("Not a metadata file: ") + row.words + keys;
    EXPECT_THAT(check.out, StartsWith("<stdin>:" + std::string(row.place) + ": error: " + message));
    const ToolRun load = RunTool({"list", "sources", "--source", "-"}, row.text);
    EXPECT_EQ(load.status, 1) << row.text;
    EXPECT_THAT(load.err, StartsWith("zelk-metadata: standard input:" + std::string(row.place) +
                                     ": " + message));
    const auto json = CheckedJson("-", row.text);
    EXPECT_TRUE(json["files"][0]["domain"].IsNull());
    EXPECT_TRUE(json["files"][0]["messages"][0]["id"].IsNull());
  }
  EXPECT_THAT(RunTool({"check", "-"}, R"({"x": 1, "Metamodel": {}})").out,
              HasSubstr("cli.\n  1 | {\"x\": 1, \"Metamodel\": {}}\n    |          ^\n  Did you "
                        "mean metamodel?\n"));
  EXPECT_THAT(RunTool({"check", "--output", "github", "-"}, "[]").out,
              StartsWith("::error file=<stdin>,line=1,col=1::Not a metadata file: "));
}

TEST(CheckRoots, SecondRootKeyIsAWarning) {
  const std::string text = "{\"cli\": [],\n \"metamodel\": {}, \"x\": 1}";
  const std::string message =
      "2:2: warning: \"metamodel\" is ignored, since a file belongs to one domain only: that of "
      "its "
      "first root key, \"cli\".";
  const ToolRun check = RunTool({"check", "-"}, text);
  EXPECT_EQ(check.status, 0);
  EXPECT_THAT(check.out, AllOf(StartsWith("<stdin>:" + message + "\n"),
                               EndsWith("<stdin>: loads, with 1 warning\n")));
  const ToolRun load = RunTool({"list", "sources", "--source", "-"}, text);
  EXPECT_EQ(load.status, 0);
  EXPECT_EQ(load.err, "zelk-metadata: standard input:" + message + "\n");
  const ToolRun inner = RunTool({"list", "sources", "--source", "-"},
                                R"({"cli": [], "x": {"metamodel": ["authentication"]}})");
  EXPECT_EQ(inner.err, "");
}

TEST(CheckRoots, SecondRootKeyMayBeWrittenWithEscapes) {
  const ToolRun load =
      RunTool({"list", "sources", "--source", "-"}, R"({"metamodel": {}, "\u0063li": []})");
  EXPECT_THAT(load.err, HasSubstr("\"cli\" is ignored"));
  const ToolRun other =
      RunTool({"list", "sources", "--source", "-"}, R"({"cli": [], "\u0027": "\u00e4\u0063"})");
  EXPECT_EQ(other.err, "");
}

TEST(CheckFolders, EveryFileIsCheckedAndSummedUp) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.Path("a/b"));
  folder.Write("a/b/deep.json", R"({"cli": []})");
  folder.Write("a/bad.json", R"({"cli": 1})");
  folder.Write("c.json", R"({"cli": [], "metamodel": {}})");
  folder.Write("d.txt", "?");
  const ToolRun run = RunTool({"check", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, AllOf(StartsWith(folder.Path("a/b/deep.json") + ": ok\n" +
                                        folder.Path("a/bad.json") + ":1:9: error: "),
                             EndsWith(": loads, with 1 warning\n"
                                      "3 files: 1 ok, 1 with warnings, 1 with errors\n")));
  const ToolRun quiet = RunTool({"check", "--quiet", folder.Path("")});
  EXPECT_EQ(quiet.status, 1);
  EXPECT_THAT(quiet.out, AllOf(StartsWith(folder.Path("a/bad.json") + ":1:9: error: "),
                               Not(HasSubstr("loads")), Not(HasSubstr("files"))));
  EXPECT_EQ(RunTool({"check", "--quiet", folder.Path("a/b")}).out, "");
  const auto json = CheckedJson(folder.Path(""));
  EXPECT_EQ(json["version"].GetInt(), 1);
  EXPECT_EQ(json["files"].Size(), 3U);
  EXPECT_EQ(json["summary"]["files"].GetInt(), 3);
  EXPECT_EQ(json["summary"]["ok"].GetInt(), 1);
  EXPECT_EQ(json["summary"]["errors"].GetInt(), 1);
}

TEST(CheckFolders, EmptyFolderIsAnError) {
  const TempFolder folder;
  const ToolRun run = RunTool({"check", folder.Path("")});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, AllOf(StartsWith(folder.Path("") + ": error: "),
                             HasSubstr("this folder has no *.json file\n")));
}

TEST(CheckTerminal, LinesAreNoWiderThanTheTerminal) {
  const std::string field = R"("constants": [], "fields": [{"name": "f", "documentation": "",
 "metadata": {}, "type":                                              {"category": "builtin", "primitive_type": "STRNG"}}])";
  std::istringstream in(Structure(field));
  std::ostringstream out;
  std::ostringstream err;
  Zelk::Tool::Run({"check", "-"}, {in, out, err, {true, 60, false}});
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    // A pointer is one word.
    if (line.find("/metamodel/") != std::string::npos) continue;
    EXPECT_LE(line.size(), 60U) << line;
  }
  EXPECT_THAT(out.str(),
              HasSubstr("error: Json parse invalid enum value:\n    primitive_type [zelk."));
}
