#include <string>

#include <gmock/gmock.h>

#include "support/temp_folder.h"
#include "tool/tool_run.h"

// The types that a structure is made of.

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

std::string Field(const std::string& name, const std::string& type) {
  return R"({"name": ")" + name + R"(", "documentation": "", "metadata": {}, "type": )" + type +
         "}";
}

std::string Named(const std::string& type) {
  return R"({"category": "USER_DEFINED", "user_defined_type": "Structure",
             "user_defined_type_name": ")" +
         type + R"("})";
}

std::string StructureOf(const std::string& name, const std::string& fields) {
  return R"({"name": ")" + name + R"(", "type": "STRUCTURE", "documentation": "", "metadata": {},
             "enumerations": [], "constants": [], "fields": [)" +
         fields + "]}";
}

std::string FileOf(const std::string& structures) {
  return R"({"metamodel": {"component": {"name": "c", "documentation": "", "metadata": {},
             "packages": [{"name": "p", "documentation": "", "metadata": {}, "enumerations": [],
             "services": [], "structures": [)" +
         structures + "]}]}}}";
}

}  // namespace

TEST(Expand, ShowsTheTypesOfTheFields) {
  const std::string plain = RunOnInventory("get structure com.acme.inventory.machine").out;
  EXPECT_EQ(RunOnInventory("get structure com.acme.inventory.machine --expand").out,
            plain +
                "\nTypes:\n"
                "    id: ID\n"
                "    name: STRING\n"
                "    power: com.acme.inventory.machine.power\n"
                "        enumeration com.acme.inventory.machine.power\n"
                "            ON\n"
                "            OFF\n"
                "            SUSPENDED\n"
                "    disks: MAP<ID, LIST<com.acme.inventory.disk>>\n"
                "        structure com.acme.inventory.disk\n"
                "            capacity: LONG\n"
                "            label: OPTIONAL<STRING>\n");
}

TEST(Expand, DepthLimitsTheLevels) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "a.json", FileOf(StructureOf("a", Field("b", Named("b"))) + "," +
                       StructureOf("b", Field("c", Named("c"))) + "," +
                       StructureOf("c", Field("d", Named("d"))) + "," +
                       StructureOf("d", Field("e", Named("e"))) + "," + StructureOf("e", "")));
  const std::string get = "get structure a --expand --source " + file;
  EXPECT_THAT(RunLine(get).out, EndsWith("structure d\n"
                                         "                            e: e\n"
                                         "                                structure e (at a deeper "
                                         "level)\n"));
  EXPECT_THAT(RunLine(get + " --depth 1").out,
              EndsWith("    b: b\n        structure b\n            c: c\n"
                       "                structure c (at a deeper level)\n"));
  EXPECT_THAT(RunLine(get + " --depth 9").out, Not(HasSubstr("deeper")));
}

TEST(Expand, CyclesAndRepetitionsAreShownAsSuch) {
  const TempFolder folder;
  const std::string file = folder.Write(
      "a.json",
      FileOf(StructureOf("a", Field("b", Named("b")) + "," + Field("self", Named("a")) + "," +
                                  Field("again", Named("b")) + "," + Field("far", Named("x"))) +
             "," + StructureOf("b", Field("back", Named("a")))));
  EXPECT_THAT(RunLine("get structure a --expand --depth 99 --source " + file).out,
              EndsWith("Types:\n"
                       "    b: b\n"
                       "        structure b\n"
                       "            back: a\n"
                       "                structure a (contains itself)\n"
                       "    self: a\n"
                       "        structure a (contains itself)\n"
                       "    again: b\n"
                       "        structure b (shown above)\n"
                       "    far: x\n"
                       "        x (not loaded)\n"));
}

TEST(Expand, EnumerationIsShownOnce) {
  const TempFolder folder;
  const std::string fields = Field("one", Named("e")) + "," + Field("two", Named("e"));
  std::string file = FileOf(StructureOf("a", fields));
  const std::string before = "\"enumerations\": [],\n             \"services\"";
  const std::size_t at = file.find(before);
  ASSERT_NE(at, std::string::npos);
  file.insert(at + 17, R"({"name": "e", "documentation": "", "metadata": {}, "values": []})");
  EXPECT_THAT(RunLine("get structure a --expand --source " + folder.Write("a.json", file)).out,
              EndsWith("    one: e\n        enumeration e\n"
                       "    two: e\n        enumeration e (shown above)\n"));
}

TEST(Expand, JsonHasEachTypeOnce) {
  const auto records = ParsedJson(
      RunOnInventory("get structure com.acme.inventory.machine --expand --json").out, "records");
  const auto& types = records[0]["types"];
  ASSERT_EQ(types.Size(), 2U);
  EXPECT_STREQ(types[0]["kind"].GetString(), "enumeration");
  EXPECT_STREQ(types[1]["name"].GetString(), "com.acme.inventory.disk");
  EXPECT_EQ(types[1]["level"].GetInt(), 1);
  EXPECT_STREQ(types[1]["record"]["fields"][0]["name"].GetString(), "capacity");
  EXPECT_THAT(RunOnInventory("get structure com.acme.inventory.machine --json").out,
              Not(HasSubstr("\"types\"")));
}

TEST(Expand, LongChainsOfTypesNeedLittleStackAndRoom) {
  const TempFolder folder;
  std::string structures;
  constexpr int kCount = 5000;
  for (int i = 0; i < kCount; ++i) {
    structures += (i == 0 ? "" : ",") +
                  StructureOf("s" + std::to_string(i),
                              Field("one", Named("s" + std::to_string((i + 1) % kCount))) + "," +
                                  Field("two", Named("s" + std::to_string((i + 1) % kCount))));
  }
  const std::string get = "get structure s0 --expand --depth 999999999 --source " +
                          folder.Write("a.json", FileOf(structures));
  EXPECT_LT(RunLine(get).out.size(), 100'000U);
  const auto records = ParsedJson(RunLine(get + " --json").out, "records");
  EXPECT_EQ(records[0]["types"].Size(), 4999U);
}

TEST(Expand, IsForStructures) {
  const ToolRun run = RunOnThree("get service com.acme.inventory.machines --expand");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "zelk-metadata: --expand is for structures\n");
  EXPECT_EQ(RunOnThree("get nothing x --expand").status, 3);
  const ToolRun levels = RunOnThree("get structure com.acme.inventory.machine_info --depth 2");
  EXPECT_EQ(levels.status, 2);
  EXPECT_EQ(levels.err, "zelk-metadata: --depth needs --expand\n");
}
