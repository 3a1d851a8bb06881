#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "support/temp_folder.h"
#include "tool/tool_run.h"

using Zelk::Testing::kDataFolder;
using Zelk::Testing::RunLine;
using Zelk::Testing::RunOnInventory;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;

namespace {

rapidjson::Document Parsed(const std::string& text) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(text.data(), text.size());
  EXPECT_FALSE(document.HasParseError()) << text;
  return document;
}

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
    {"fingerprint component com.acme", "domain kind ids fingerprint"},
};

}  // namespace

TEST(Json, RecordsHaveTheirMembersInTheRecordsOrder) {
  for (const Row& row : kRecords) {
    const ToolRun run = RunOnInventory(std::string(row.line) + " --json");
    const rapidjson::Document document = Parsed(run.out);
    ASSERT_TRUE(document.IsObject()) << row.line;
    EXPECT_EQ(MemberNames(document), row.members) << row.line;
    EXPECT_EQ(run.status, 0) << row.line;
  }
}

TEST(Json, TextsComeBackAsTheyAreInTheFile) {
  const ToolRun run = RunOnInventory("get operation com.acme.inventory.machines remove --json");
  EXPECT_STREQ(Parsed(run.out)["documentation"].GetString(),
               "Removes a machine.\n\tIts disks go with it.");
  const ToolRun service = RunOnInventory("get service com.acme.inventory.machines --json");
  const rapidjson::Document document = Parsed(service.out);
  const auto& tags = document["metadata"]["Tags"]["elements"]["value"]["list_value"];
  EXPECT_STREQ(tags[1].GetString(), "na\u00efve");
}

TEST(Json, CheckHasTheArgumentsAndThePlaceOfEveryMessage) {
  const TempFolder folder;
  const std::string path = folder.Write("file.json", "{\n ?}");
  const rapidjson::Document document = Parsed(RunTool({"check", "--json", path}).out);
  ASSERT_EQ(document.Size(), 1U);
  EXPECT_EQ(MemberNames(document[0]), "file domain ok messages");
  EXPECT_EQ(document[0]["file"].GetString(), path);
  const rapidjson::Value& message = document[0]["messages"][0];
  EXPECT_EQ(MemberNames(message), "severity id text arguments line column pointer explanation");
  EXPECT_STREQ(message["arguments"][1].GetString(), "3");
  EXPECT_EQ(message["line"].GetUint(), 2U);
  EXPECT_EQ(message["column"].GetUint(), 2U);
}

TEST(Json, AnswersAreNeverPartlyText) {
  for (const char* line : {"check --json missing.json", "list components --json",
                           "list hidden --json", "fingerprint --json"}) {
    Parsed(RunLine(line).out);
  }
}
