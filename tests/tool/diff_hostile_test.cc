#include <algorithm>
#include <string>

#include <gmock/gmock.h>

#include "support/repeat.h"
#include "support/small_stack.h"
#include "tool/diff_run.h"

// Files that are as bad for diff as files can be.

using testing::EndsWith;
using testing::HasSubstr;
using Zelk::Testing::kBefore;
using Zelk::Testing::Repeat;
using Zelk::Testing::RunOnSmallStack;
using Zelk::Testing::ToolRun;
using Zelk::Testing::Versions;

namespace {

/// A file with the texts as its operations.
std::string WithOperations(const std::string& operations) {
  const std::string text = kBefore;
  const std::size_t begin = text.find("\"operations\": [") + 15;
  return text.substr(0, begin) + operations + text.substr(text.size() - 8);
}

std::string Operation(const std::string& name) {
  const std::string text = ZELK_TEST_OPERATION("NAME");
  const std::size_t at = text.find("NAME");
  return text.substr(0, at) + name + text.substr(at + 4);
}

}  // namespace

TEST(DiffHostile, DuplicatesAreNoChanges) {
  const std::string many = Repeat("," + Operation("start"), 20'000);
  const ToolRun run =
      Versions(kBefore, WithOperations(Operation("start") + many + "," + Operation("stop"))).Run();
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("Only the fingerprint changes.\n"));
}

TEST(DiffHostile, ManyChangesAreCounted) {
  std::string all = Operation("start");
  for (int i = 0; i < 5'000; ++i) all += "," + Operation("o" + std::to_string(i));
  const ToolRun run = Versions(WithOperations(all), kBefore).Run({"--json"});
  EXPECT_EQ(run.status, 5);
  EXPECT_NE(run.out.find(R"("breaking":5000,)"), std::string::npos);
}

TEST(DiffHostile, ChangesThatAreTooLongToListAreCounted) {
  std::string all = Operation("start");
  for (int i = 0; i < 36; ++i) {
    all += "," + Operation(std::string(1'000'000, 'n') + std::to_string(i));
  }
  const Versions versions(WithOperations(all), kBefore);
  const ToolRun run = versions.Run();
  EXPECT_EQ(run.status, 5);
  EXPECT_THAT(run.out, HasSubstr(" of them not listed\n"));
  EXPECT_EQ(versions.Run({"--bump"}).out, "major\n");
}

TEST(DiffHostile, LongNamesAreShortened) {
  const std::string name(1'000'000, 'n');
  for (const char* output : {"text", "markdown", "github"}) {
    const ToolRun run =
        Versions(kBefore, WithOperations(Operation(name))).Run({"--output", output});
    EXPECT_EQ(run.status, 5);
    EXPECT_THAT(run.out, HasSubstr("nnn...nnn"));
    EXPECT_LT(run.out.size(), 10'000U) << output;
  }
}

TEST(DiffHostile, ControlCharactersAreShownAsText) {
  const std::string name = Repeat(R"(\u001b\u0007\u0000)", 1000);
  for (const char* output : {"text", "markdown", "github", "json"}) {
    const ToolRun run =
        Versions(kBefore, WithOperations(Operation("a" + name))).Run({"--output", output});
    EXPECT_TRUE(std::all_of(run.out.begin(), run.out.end(), [](char byte) {
      return byte == '\n' || byte >= ' ';
    })) << output;
  }
}

TEST(DiffHostile, DeepValuesAreCompared) {
  const std::string deep = "\"x\": " + Repeat("[", 100'000) + std::string(100'000, ']') + ", ";
  const std::string text = kBefore;
  ToolRun run{};
  RunOnSmallStack(256 * 1024, [&] { run = Versions(text, "{" + deep + text.substr(1)).Run(); });
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, EndsWith("fingerprint changes.\npassed\n"));
}
