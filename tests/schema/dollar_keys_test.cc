#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/pointer.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "analysis/linted.h"
#include "support/file_text.h"
#include "support/source_dir.h"

namespace {

rapidjson::Document JsonOf(const std::string& name) {
  rapidjson::Document document;
  document.Parse(Zelk::Testing::FileText(ZELK_SOURCE_DIR "/tests/data/schema/" + name).c_str());
  return document;
}

std::string TextOf(const rapidjson::Document& document) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  document.Accept(writer);
  return buffer.GetString();
}

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

}  // namespace

TEST(DollarKeys, AreNotReportedByLintInAnyObjectOfTheFormats) {
  const rapidjson::Document cases = JsonOf("cases.json");
  std::size_t dollar_keys = 0;
  for (const auto& row : cases.GetArray()) {
    const std::string pointer = row["pointer"].GetString();
    const bool begins_with_dollar = EndsWith(pointer, "/$other");
    if (!begins_with_dollar && !EndsWith(pointer, "/other")) continue;
    rapidjson::Document document = JsonOf(std::string(row["format"].GetString()) + ".json");
    rapidjson::Pointer(pointer.c_str()).Set(document, 7);
    const auto found = Zelk::Testing::Found("unknown-key", {TextOf(document)});
    EXPECT_EQ(found.empty(), begins_with_dollar) << pointer;
    dollar_keys += begins_with_dollar ? 1 : 0;
  }
  EXPECT_GT(dollar_keys, 20U);
}
