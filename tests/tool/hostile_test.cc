#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <rapidjson/reader.h>

#include "support/small_stack.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

// Files made to harm: deeper than any stack, or with texts that a terminal would obey.

using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::RunOnSmallStack;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

constexpr std::size_t kLevels = 50'000;
constexpr std::size_t kStack = 256 * 1024;

std::string Repeated(const std::string& text, std::size_t count) {
  std::string repeated;
  repeated.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) repeated += text;
  return repeated;
}

/// A file whose structure "s" has one field of the type given.
std::string FileWithFieldType(const std::string& type) {
  const std::string described = R"("documentation": "", "metadata": {}, )";
  return R"({"metamodel": {"component": {"name": "c", )" + described +
         R"("packages": [{"name": "p", )" + described +
         R"("enumerations": [], "services": [], "structures": [{"name": "s", )" + described +
         R"("type": "STRUCTURE", "enumerations": [], "constants": [], "fields": [{"name": "f", )" +
         described + R"("type": )" + type + "}]}]}]}}}";
}

/// A type nested in `opening` as often as kLevels says.
std::string Nested(const std::string& opening) {
  return Repeated(opening, kLevels) + R"({"category": "BUILTIN", "primitive_type": "ID"})" +
         std::string(kLevels, '}');
}

const std::string kListOf = R"({"category": "GENERIC", "generic_type": "LIST", "element_type": )";
const std::string kMapTo =
    R"({"category": "GENERIC", "generic_type": "MAP", "map_key_type":)"
    R"( {"category": "BUILTIN", "primitive_type": "ID"}, "map_value_type": )";

ToolRun RunWithLittleStack(const std::vector<std::string>& args) {
  ToolRun run{};
  RunOnSmallStack(kStack, [&] { run = RunTool(args); });
  return run;
}

/// Counts the members of a name while a text is parsed.
struct KeyCounter : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, KeyCounter> {
  explicit KeyCounter(std::string counted) : name(std::move(counted)) {}

  bool Key(const char* key, rapidjson::SizeType size, bool /*copy*/) {
    count += name.compare(0, std::string::npos, key, size) == 0 ? 1 : 0;
    return true;
  }

  std::string name;
  std::size_t count = 0;
};

std::size_t CountKeys(const std::string& json, const std::string& name) {
  KeyCounter counter(name);
  rapidjson::StringStream stream(json.c_str());
  EXPECT_FALSE(
      rapidjson::Reader().Parse<rapidjson::kParseIterativeFlag>(stream, counter).IsError());
  return counter.count;
}

}  // namespace

TEST(Hostile, FileThatIsTooLargeIsReportedWithoutAPlaceAndNotRead) {
  const TempFolder folder;
  const std::string path = folder.Write("file.json", R"({"cli": []})");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 40U);
  const std::string message = "The file has 4 GiB or more, which is not loaded.";
  const ToolRun check = RunTool({"check", path});
  EXPECT_EQ(check.status, 1);
  EXPECT_THAT(check.out, HasSubstr(path + ": error: " + message));
  const ToolRun list = RunTool({"list", "namespace", "--source", path});
  EXPECT_EQ(list.status, 1);
  EXPECT_THAT(list.err, HasSubstr(path + ": " + message));
}

TEST(Hostile, DeepTypeHasAPage) {
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", FileWithFieldType(Nested(kListOf)));
  const ToolRun run = RunWithLittleStack({"get", "structure", "s", "--source", file});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.out == "structure s\n\nFields:\n    f: " + Repeated("LIST<", kLevels) + "ID" +
                             std::string(kLevels, '>') + "\n")
      << run.out.substr(0, 100);
}

TEST(Hostile, DeepMapHasAPage) {
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", FileWithFieldType(Nested(kMapTo)));
  const ToolRun run = RunWithLittleStack({"get", "structure", "s", "--source", file});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(run.out == "structure s\n\nFields:\n    f: " + Repeated("MAP<ID, ", kLevels) + "ID" +
                             std::string(kLevels, '>') + "\n")
      << run.out.substr(0, 100);
}

TEST(Hostile, DeepTypeIsCompleteInJson) {
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", FileWithFieldType(Nested(kListOf)));
  const ToolRun run = RunWithLittleStack({"get", "structure", "s", "--json", "--source", file});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(CountKeys(run.out, "generic_type"), kLevels);
}

TEST(Hostile, DeepMapIsCompleteInJson) {
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", FileWithFieldType(Nested(kMapTo)));
  const ToolRun run = RunWithLittleStack({"get", "component", "c", "--json", "--source", file});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(CountKeys(run.out, "generic_type"), kLevels);
}

TEST(Hostile, DeepBracketsAreChecked) {
  const TempFolder folder;
  const std::string file = folder.Write("deep.json", std::string(kLevels, '['));
  const ToolRun run = RunWithLittleStack({"check", file});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("deep.json:1:" + std::to_string(kLevels + 1) + ": error: "));
}

TEST(Hostile, NamesAndTextsCannotControlTheTerminal) {
  const TempFolder folder;
  const std::string evil = R"(\u001b[2J\u0007\u009b31m\nsecond line)";
  const std::string file = folder.Write(
      "evil.json", R"({"metamodel": {"component": {"name": ")" + evil + R"(", "documentation": ")" +
                       evil + R"(", "metadata": {")" + evil + R"(": {")" + evil + R"(": ")" + evil +
                       R"("}}, "packages": []}}})");
  const std::string name = "\x1b[2J\x07\u009b31m\nsecond line";
  const std::string shown = "\\x1b[2J\\x07\\u009b31m\\x0asecond line";
  EXPECT_EQ(RunTool({"list", "components", "--source", file}).out, shown + "\n");
  const std::string page = RunTool({"get", "component", name, "--source", file}).out;
  EXPECT_THAT(page, testing::StartsWith("component " + shown + "\n    \\x1b[2J\\x07\\u009b31m\n" +
                                        "    second line\n    @" + shown + " " + shown + "=\"" +
                                        shown + "\"\n"));
  for (const char* option : {"--json", "--source=x"}) {
    const ToolRun run = RunTool({"get", "component", name, "--source", file, option});
    EXPECT_THAT(run.out + run.err, Not(testing::AnyOf(HasSubstr("\x1b"), HasSubstr("\u009b"))));
  }
}

TEST(Hostile, FileNamesAndIdsCannotControlTheTerminal) {
  EXPECT_EQ(RunTool({"check", "\x1b[2J"}).out, "\\x1b[2J: error: No such file or directory\n");
  EXPECT_EQ(RunTool({"get", "component", "\x1b[2J"}).err,
            "zelk-metadata: Metamodel component not found: \\x1b[2J\n");
  EXPECT_THAT(RunTool({"list", "\x1b[2J"}).err, HasSubstr("unknown kind '\\x1b[2J'"));
}

TEST(Hostile, InvalidUtf8IsReplacedInJsonAndShownOnPages) {
  const TempFolder folder;
  const std::string file = folder.Write("latin.json",
                                        "{\"metamodel\": {\"component\": {\"name\": \"caf\xe9\", "
                                        "\"documentation\": \"\", \"metadata\": {}, "
                                        "\"packages\": []}}}");
  EXPECT_EQ(RunTool({"list", "components", "--source", file}).out, "caf\\xe9\n");
  EXPECT_EQ(
      RunTool({"list", "components", "--json", "--source", file}).out,
      R"({"version":1,"names":[{"domain":"metamodel","kind":"component","name":"caf\uFFFD"}]})"
      "\n");
  const ToolRun run = RunTool({"get", "component", "caf\xe9", "--json", "--source", file});
  EXPECT_THAT(run.out, HasSubstr(R"("name":"caf\uFFFD")"));
}

TEST(Hostile, MistakeAfterDeepTypesHasItsPlace) {
  const TempFolder folder;
  std::string text = FileWithFieldType(Nested(kMapTo));
  const std::size_t at = text.rfind("BUILTIN");
  text.replace(at, 7, "BUILDIN");
  const std::string file = folder.Write("deep.json", text);
  const ToolRun run = RunWithLittleStack({"check", file});
  EXPECT_EQ(run.out.substr(0, 200).find(file + ":1:" + std::to_string(at) +
                                        ": error: Json parse invalid enum value: category"),
            0U)
      << run.out.substr(0, 300);
}

TEST(Hostile, DeepNamespacesHaveATreeAndHelp) {
  const TempFolder folder;
  constexpr std::size_t kNamespaces = 1500;
  const std::string file =
      folder.Write("deep.json", R"({"cli": [{"type": "namespace", "path": "a)" +
                                    Repeated(".a", kNamespaces - 1) +
                                    R"(", "name": "needle", "description": ""}]})");
  const ToolRun tree = RunWithLittleStack({"tree", "--source", file});
  EXPECT_EQ(tree.status, 0) << tree.err;
  EXPECT_EQ(std::count(tree.out.begin(), tree.out.end(), '\n'), kNamespaces + 3);
  const ToolRun json = RunWithLittleStack({"tree", "--json", "--source", file});
  EXPECT_EQ(CountKeys(json.out, "children"), kNamespaces + 3);
  EXPECT_EQ(RunWithLittleStack({"search", "needle", "--source", file}).status, 0);
  EXPECT_EQ(RunWithLittleStack({"usage", "a.a.a", "--source", file}).status, 0);
}

TEST(Hostile, ListsMayBeLong) {
  const TempFolder folder;
  constexpr std::size_t kPackages = 20000;
  std::string packages;
  for (std::size_t i = 0; i < kPackages; ++i) {
    packages += (i == 0 ? "" : ", ") + (R"({"name": "p)" + std::to_string(i)) +
                R"(", "documentation": "", "metadata": {}, "enumerations": [], "services": [],)" +
                R"( "structures": []})";
  }
  const std::string file =
      folder.Write("long.json", R"({"metamodel": {"component": {"name": "c", "documentation": "",)"
                                R"( "metadata": {}, "packages": [)" +
                                    packages + "]}}}");
  for (const char* output : {"plain", "table"}) {
    const ToolRun run = RunTool({"list", "packages", "--output", output, "--source", file});
    const bool has_heading = std::string(output) == "table";
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), kPackages + (has_heading ? 1 : 0));
  }
  EXPECT_THAT(RunTool({"tree", "--depth", "0", "--source", file}).out, HasSubstr("20000 packages"));
  EXPECT_THAT(RunTool({"get", "package", "p2000O", "--source", file}).err,
              HasSubstr("; did you mean p2000, "));
}
