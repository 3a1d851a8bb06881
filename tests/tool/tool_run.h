#pragma once

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "run.h"
#include "support/source_dir.h"

namespace Zelk::Testing {

const std::string kDataFolder = ZELK_SOURCE_DIR "/tests/data/tool";

/// The words of a command line, which blanks separate.
inline std::vector<std::string> Words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

/// What one run of the program gave.
struct ToolRun {
  int status;
  std::string out;
  std::string err;
};

inline ToolRun RunTool(const std::vector<std::string>& args, const std::string& input = {}) {
  std::istringstream in(input);
  std::ostringstream out;
  std::ostringstream err;
  const int status = Tool::Run(args, {in, out, err});
  return {status, out.str(), err.str()};
}

inline ToolRun RunLine(const std::string& line) {
  return RunTool(Words(line));
}

/// `line` with the test data's inventory as its only source.
inline ToolRun RunOnInventory(const std::string& line) {
  return RunLine(line + " --source " + kDataFolder + "/inventory.json");
}

/// `line` with a source of each domain.
inline ToolRun RunOnThree(const std::string& line) {
  return RunLine(line + " --source " + kDataFolder + "/inventory.json --source " + kDataFolder +
                 "/schemes.json --source " + kDataFolder + "/commands.json");
}

/// The array in a JSON document of the program.
inline rapidjson::Document ParsedJson(const std::string& text, const char* name) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(text.data(), text.size());
  rapidjson::Document array(rapidjson::kArrayType);
  const bool is_whole = !document.HasParseError() && document.IsObject() &&
                        document.HasMember("version") && document.HasMember(name) &&
                        document[name].IsArray();
  EXPECT_TRUE(is_whole) << name << ": " << text;
  if (!is_whole) return array;
  EXPECT_STREQ(document.MemberBegin()->name.GetString(), "version");
  EXPECT_EQ(document["version"].GetInt(), 1);
  array.CopyFrom(document[name], array.GetAllocator());
  return array;
}

}  // namespace Zelk::Testing
