#pragma once

#include <string>
#include <vector>

#include "tool/tool_run.h"

namespace Zelk::Testing {

/// What check writes with --json.
inline rapidjson::Document CheckedJson(const std::string& file, const std::string& input = {}) {
  rapidjson::Document document;
  document.Parse(RunTool({"check", "--json", file}, input).out.c_str());
  EXPECT_TRUE(document.IsObject() && document.HasMember("files") && document.HasMember("summary"));
  return document;
}

}  // namespace Zelk::Testing
