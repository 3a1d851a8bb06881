#include <string>

#include <gmock/gmock.h>

#include "support/repeat.h"
#include "support/small_stack.h"
#include "support/temp_folder.h"
#include "tool/shell_run.h"
#include "tool/tool_run.h"

// Files that are as bad for lint as files can be.

using testing::HasSubstr;
using Zelk::Testing::Repeat;
using Zelk::Testing::RunOnSmallStack;
using Zelk::Testing::RunShell;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

rapidjson::Document Parsed(const std::string& text) {
  rapidjson::Document document;
  document.Parse(text.data(), text.size());
  EXPECT_FALSE(document.HasParseError());
  return document;
}

}  // namespace

TEST(LintHostile, MistakesThatAreManyAreCountedButNotAllListed) {
  const TempFolder folder;
  const std::string file =
      folder.Write("many.json", R"({"cli": [])" + Repeat(",\"k\":0", 150'000) + "}");
  const ToolRun run = RunTool({"lint", file, "--json"});
  EXPECT_EQ(run.status, 0);
  const auto document = Parsed(run.out);
  EXPECT_EQ(document["findings"].Size(), 100'000U);
  EXPECT_EQ(document["summary"]["notes"].GetInt(), 150'000);
  EXPECT_EQ(document["summary"]["unlisted"].GetInt(), 50'000);
}

TEST(LintHostile, DeepTypesAreReportedWithoutPointers) {
  constexpr std::size_t kLevels = 10'000;
  const std::string head = R"("documentation": "Text.", "metadata": {}, )";
  const std::string type =
      Repeat(R"({"category": "GENERIC", "generic_type": "LIST", "x": 1, "element_type": )",
             kLevels) +
      R"({"category": "BUILTIN", "primitive_type": "VOID"})" + std::string(kLevels, '}');
  const TempFolder folder;
  const std::string file = folder.Write(
      "deep.json",
      R"({"metamodel": {"component": {"name": "c", )" + head + R"("packages": [{"name": "c.p", )" +
          head + R"("enumerations": [], "services": [], "structures": [{"name": "c.p.s", )" + head +
          R"("type": "STRUCTURE", "enumerations": [], "constants": [], "fields": [{"name": "f", )" +
          head + R"("type": )" + type + "}]}]}]}}}");
  ToolRun run{};
  RunOnSmallStack(256 * 1024, [&] { run = RunTool({"lint", file, "--json"}); });
  EXPECT_EQ(run.status, 0) << run.err;
  const auto document = Parsed(run.out);
  EXPECT_EQ(document["summary"]["notes"].GetUint(), kLevels + 1);
  const auto& findings = document["findings"];
  std::size_t without = 0;
  for (const auto& finding : findings.GetArray()) without += finding["pointer"].IsNull() ? 1 : 0;
  EXPECT_GT(without, kLevels / 2);
  EXPECT_LT(without, kLevels);
}

TEST(LintHostile, LongNamesAreShortenedInMessages) {
  const TempFolder folder;
  const std::string key(100'000, 'k');
  const std::string file = folder.Write("long.json", R"({"cli": [], ")" + key + R"(": 1})");
  const ToolRun run = RunTool({"lint", file});
  EXPECT_THAT(run.out, HasSubstr("kkk...kkk"));
  EXPECT_THAT(run.out, HasSubstr("kkk' is not read [unknown-key]"));
  EXPECT_LT(run.out.size(), 2000U);
}

TEST(LintHostile, MemoryThatRunsOutHasAStatusOfItsOwn) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "sanitizers need more address space than is left";
#endif
  const ToolRun run = RunShell(
      "cd $(dirname $0)\n"
      "(printf '{\"cli\": []'; head -c 3000000 /dev/zero | sed 's/\\x00/,\"k\":0/g'; printf '}')"
      " > many.json\n"
      "ulimit -v 300000\n"
      "$tool lint many.json; echo $?");
  EXPECT_EQ(run.out, "4\n");
  EXPECT_EQ(run.err, "zelk-metadata: out of memory\n");
}
