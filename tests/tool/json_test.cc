#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "support/temp_folder.h"
#include "tool/check_json.h"
#include "tool/tool_run.h"

using Zelk::Testing::CheckedJson;
using Zelk::Testing::kDataFolder;
using Zelk::Testing::ParsedJson;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunOnThree;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

std::string MemberNames(const rapidjson::Value& object) {
  std::string names;
  for (const auto& member : object.GetObject()) {
    names += (names.empty() ? "" : " ") + std::string(member.name.GetString());
  }
  return names;
}

struct Row {
  const char* line;
  const char* members;
};

const Row kRecords[] = {
    {"get component com.acme", "info fingerprint"},
    {"get package com.acme.inventory",
     "name structures enumerations services metadata documentation"},
    {"get service com.acme.inventory.machines",
     "name operations structures enumerations constants metadata documentation"},
    {"get operation com.acme.inventory.machines get",
     "name params output errors metadata documentation"},
    {"get structure com.acme.inventory.machine",
     "name type enumerations constants fields metadata documentation"},
    {"get enumeration com.acme.inventory.layer", "name values metadata documentation"},
    {"get source inventory", "description type file_path address"},
};

const Row kArrays[] = {
    {"list components", "names"},
    {"list hidden", "names"},
    {"get source commands", "records"},
    {"fingerprint", "fingerprints"},
    {"tree", "entries"},
    {"search acme", "matches"},
    {"which component com.acme", "answers"},
    {"usage", "usages"},
    {"uses service com.acme.inventory.machines", "uses"},
    {"explain", "messages"},
};

const Row kEmptyArrays[] = {
    {"list operations nope", "names"},
    {"get source nope", "records"},
    {"fingerprint source nope", "fingerprints"},
    {"search gizmo", "matches"},
    {"tree nope", "entries"},
    {"uses structure nope", "uses"},
    {"which component nope", "answers"},
    {"usage nope", "usages"},
    {"explain nope", "messages"},
};

}  // namespace

TEST(Json, RecordsHaveTheirMembersInTheRecordsOrder) {
  for (const Row& row : kRecords) {
    const ToolRun run = RunOnInventory(std::string(row.line) + " --json");
    const auto records = ParsedJson(run.out, "records");
    ASSERT_EQ(records.Size(), 1U) << row.line;
    EXPECT_EQ(MemberNames(records[0]), "domain kind ids record") << row.line;
    EXPECT_EQ(MemberNames(records[0]["record"]), row.members) << row.line;
    EXPECT_EQ(run.status, 0) << row.line;
  }
}

TEST(Json, TextsComeBackAsTheyAreInTheFile) {
  const ToolRun run = RunOnInventory("get operation com.acme.inventory.machines remove --json");
  EXPECT_STREQ(ParsedJson(run.out, "records")[0]["record"]["documentation"].GetString(),
               "Removes a machine.\n\tIts disks go with it.");
  const ToolRun service = RunOnInventory("get service com.acme.inventory.machines --json");
  const auto records = ParsedJson(service.out, "records");
  const auto& tags = records[0]["record"]["metadata"]["Tags"]["elements"]["value"]["list_value"];
  EXPECT_STREQ(tags[1].GetString(), "na\u00efve");
}

TEST(Json, CheckHasTheArgumentsAndThePlaceOfEveryMessage) {
  const TempFolder folder;
  const std::string path = folder.Write("file.json", "{\n ?}");
  const auto document = CheckedJson(path);
  EXPECT_EQ(MemberNames(document), "version files summary");
  EXPECT_EQ(MemberNames(document["summary"]), "files ok warnings errors");
  ASSERT_EQ(document["files"].Size(), 1U);
  const rapidjson::Value& file = document["files"][0];
  EXPECT_EQ(MemberNames(file), "file domain state messages");
  EXPECT_EQ(file["file"].GetString(), path);
  const rapidjson::Value& message = file["messages"][0];
  EXPECT_EQ(MemberNames(message),
            "severity id text arguments line column pointer explanation hint");
  EXPECT_STREQ(message["arguments"][1].GetString(), "3");
  EXPECT_EQ(message["line"].GetUint(), 2U);
  EXPECT_EQ(message["column"].GetUint(), 2U);
}

TEST(Json, AnswersAreNeverPartlyText) {
  for (const Row& row : kArrays)
    ParsedJson(RunOnThree(std::string(row.line) + " --json").out, row.members);
  CheckedJson("missing.json");
}

TEST(Json, UnknownNamesGiveAnEmptyArrayAndTheStatus) {
  for (const Row& row : kEmptyArrays) {
    const ToolRun run = RunOnThree(std::string(row.line) + " --json");
    EXPECT_EQ(ParsedJson(run.out, row.members).Size(), 0U) << row.line;
    EXPECT_EQ(run.status, 3) << row.line;
    EXPECT_NE(run.err, "") << row.line;
  }
}

TEST(Json, FoundRecordsAreThereIfOthersAreNot) {
  const ToolRun run = RunOnThree("get source nope inventory --json");
  EXPECT_EQ(ParsedJson(run.out, "records").Size(), 1U);
  EXPECT_EQ(run.status, 3);
}
