#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "support/temp_folder.h"
#include "tool/tool_run.h"

// What other programs need of the outputs that are made for them.

using testing::HasSubstr;
using Zelk::Testing::RunTool;
using Zelk::Testing::TempFolder;
using Zelk::Testing::ToolRun;
using Value = rapidjson::Value;

namespace {

// Errors, warnings and notes, with names that are hard to write.
const char kMistakes[] = R"({"$lint": {"ignore": ["malformed-name"]}, "cli": [
{"type": "namespace", "path": "", "name": "a\u001b\u0085<&\"\u2028\ufffe", "description": "",
 "k]]>\uffff": 1},
{"type": "command", "path": "acme", "name": "start", "description": "x",
 "node_metadata": {"service_id": "a.b", "operation_id": "c", "formatter": "tabel\ud83d\ude00"}}]})";

class LintFormats : public testing::Test {
 protected:
  ToolRun Run(const std::string& output) {
    return RunTool({"lint", good_, mistakes_, broken_, "--output", output});
  }

 private:
  TempFolder folder_;
  std::string good_ = folder_.Write("good file.json", R"({"metamodel": {"component": {
"name": "acme", "documentation": "Machines.", "metadata": {}, "packages": []}}})");
  std::string mistakes_ = folder_.Write("mistakes.json", kMistakes);
  std::string broken_ = folder_.Write("broken.json", R"({"cli": [{}]})");
};

/// A string that is not empty.
void ExpectText(const Value& object, const char* key) {
  ASSERT_TRUE(object.HasMember(key)) << key;
  ASSERT_TRUE(object[key].IsString()) << key;
  EXPECT_NE(object[key].GetStringLength(), 0U) << key;
}

/// A message or a text for people.
void ExpectMessage(const Value& object, const char* key) {
  ASSERT_TRUE(object.HasMember(key)) << key;
  ExpectText(object[key], "text");
}

void ExpectLevel(const Value& level) {
  EXPECT_THAT(level.GetString(),
              testing::AnyOf(testing::StrEq("none"), testing::StrEq("note"),
                             testing::StrEq("warning"), testing::StrEq("error")));
}

void ExpectDriver(const Value& driver) {
  ExpectText(driver, "name");
  ExpectText(driver, "version");
  std::set<std::string> ids;
  for (const Value& rule : driver["rules"].GetArray()) {
    ExpectText(rule, "id");
    EXPECT_TRUE(ids.insert(rule["id"].GetString()).second) << rule["id"].GetString();
    for (const char* text : {"shortDescription", "fullDescription", "help"}) {
      ExpectMessage(rule, text);
    }
    ExpectLevel(rule["defaultConfiguration"]["level"]);
  }
}

void ExpectResult(const Value& result) {
  ExpectText(result, "ruleId");
  ExpectMessage(result, "message");
  ExpectLevel(result["level"]);
  ASSERT_EQ(result["locations"].Size(), 1U);
  const Value& place = result["locations"][0]["physicalLocation"];
  ExpectText(place["artifactLocation"], "uri");
  EXPECT_EQ(std::string(place["artifactLocation"]["uri"].GetString()).find(' '), std::string::npos);
  if (place.HasMember("region")) {
    EXPECT_GE(place["region"]["startLine"].GetUint(), 1U);
    EXPECT_GE(place["region"]["startColumn"].GetUint(), 1U);
  }
  for (const Value& suppression : result["suppressions"].GetArray()) {
    EXPECT_THAT(suppression["kind"].GetString(),
                testing::AnyOf(testing::StrEq("inSource"), testing::StrEq("external")));
  }
}

/// Whether the text has only what documents of XML 1.0 may have.
bool HasOnlyXmlCharacters(const std::string& text) {
  const bool has_control = std::any_of(text.begin(), text.end(), [](char byte) {
    return byte >= 0 && byte < ' ' && byte != '\n' && byte != '\t';
  });
  return !has_control && text.find("\xef\xbf\xbe") == std::string::npos &&
         text.find("\xef\xbf\xbf") == std::string::npos;
}

}  // namespace

TEST_F(LintFormats, SarifHasAllThatItsReadersRequire) {
  const ToolRun run = Run("sarif");
  EXPECT_EQ(run.status, 1);
  rapidjson::Document log;
  log.Parse<rapidjson::kParseValidateEncodingFlag>(run.out.data(), run.out.size());
  ASSERT_FALSE(log.HasParseError());
  EXPECT_STREQ(log["version"].GetString(), "2.1.0");
  ASSERT_EQ(log["runs"].Size(), 1U);
  const Value& only = log["runs"][0];
  ExpectDriver(only["tool"]["driver"]);
  EXPECT_STREQ(only["columnKind"].GetString(), "unicodeCodePoints");
  EXPECT_GE(only["results"].Size(), 5U);
  for (const Value& result : only["results"].GetArray()) ExpectResult(result);
}

TEST_F(LintFormats, SarifWithoutResultsIsWhole) {
  const TempFolder folder;
  const ToolRun run =
      RunTool({"lint", folder.Write("a.json", R"({"cli": []})"), "--output", "sarif"});
  rapidjson::Document log;
  log.Parse(run.out.data(), run.out.size());
  ASSERT_FALSE(log.HasParseError());
  ASSERT_TRUE(log["runs"][0]["results"].IsArray());
  EXPECT_EQ(log["runs"][0]["results"].Size(), 0U);
}

TEST_F(LintFormats, JunitIsXml) {
  const ToolRun run = Run("junit");
  EXPECT_TRUE(HasOnlyXmlCharacters(run.out)) << run.out;
  EXPECT_THAT(run.out, HasSubstr("k]]&gt;"));
  std::size_t open = 0;
  std::size_t cases = 0;
  std::size_t failures = 0;
  std::istringstream lines(run.out);
  std::string line;
  std::getline(lines, line);
  EXPECT_EQ(line, R"(<?xml version="1.0" encoding="UTF-8"?>)");
  while (std::getline(lines, line)) {
    const bool is_whole =
        line.find("/>") != std::string::npos || line.find("</system-out>") != std::string::npos;
    cases += line.find("<testcase ") == std::string::npos ? 0U : 1U;
    failures += line.find("<failure ") == std::string::npos ? 0U : 1U;
    if (is_whole) continue;
    line.find("</") == std::string::npos ? ++open : --open;
  }
  EXPECT_EQ(open, 0U);
  EXPECT_THAT(run.out, HasSubstr("<testsuites name=\"lint\" tests=\"" + std::to_string(cases) +
                                 "\" failures=\"" + std::to_string(failures) + "\">\n"));
}

TEST_F(LintFormats, TwoRunsAreTheSame) {
  for (const char* output : {"text", "json", "github", "sarif", "junit"}) {
    const ToolRun first = Run(output);
    EXPECT_EQ(first.out, Run(output).out) << output;
    EXPECT_THAT(first.out, HasSubstr("tabel")) << output;
  }
}
