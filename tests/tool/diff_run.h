#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/example.h"
#include "support/temp_folder.h"
#include "tool/tool_run.h"

namespace Zelk::Testing {

#define ZELK_TEST_OPERATION(name) ZELK_EXAMPLE_OPERATION(name, "", ZELK_EXAMPLE_VOID, "")

// From one to the other, an operation is gone and one is new.
constexpr char kBefore[] =
    ZELK_EXAMPLE_SERVICE("", "", ZELK_TEST_OPERATION("start") "," ZELK_TEST_OPERATION("stop"));
constexpr char kAfter[] =
    ZELK_EXAMPLE_SERVICE("", "", ZELK_TEST_OPERATION("start") "," ZELK_TEST_OPERATION("pause"));
// With what is compatible only.
constexpr char kMore[] = ZELK_EXAMPLE_SERVICE(
    "", "",
    ZELK_TEST_OPERATION("start") "," ZELK_TEST_OPERATION("stop") "," ZELK_TEST_OPERATION("pause"));

/// The text without the name of the folder, which is another one each time.
inline std::string Without(const std::string& text, const std::string& folder) {
  std::string rest;
  std::size_t begin = 0;
  for (std::size_t at = 0; (at = text.find(folder, begin)) != std::string::npos;) {
    rest += text.substr(begin, at - begin);
    begin = at + folder.size();
  }
  return rest + text.substr(begin);
}

/// Two versions in a folder of their own.
class Versions {
 public:
  Versions(const std::string& old_text, const std::string& new_text)
      : old_(folder_.Write("old.json", old_text)), new_(folder_.Write("new.json", new_text)) {}

  /// What diff reports for the wire unless `more` says otherwise, with the names of the files
  /// alone.
  ToolRun Run(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> words{"diff", old_, new_};
    words.insert(words.end(), more.begin(), more.end());
    if (std::find(more.begin(), more.end(), "--for") == more.end()) {
      words.insert(words.end(), {"--for", "wire"});
    }
    ToolRun run = RunTool(words);
    run.out = Without(run.out, folder_.Path(""));
    run.err = Without(run.err, folder_.Path(""));
    return run;
  }

  std::string Path(const std::string& name) const { return folder_.Path(name); }

  /// Writes the files, each a name and a text, into the folder of that name. Returns its path.
  std::string Folder(const std::string& name,
                     const std::vector<std::pair<std::string, std::string>>& files) const {
    std::filesystem::create_directory(Path(name));
    for (const auto& [file, text] : files) {
      std::ofstream(Path(name) + "/" + file, std::ios::binary) << text;
    }
    return Path(name);
  }

  std::string Write(const std::string& name, const std::string& text) const {
    return folder_.Write(name, text);
  }

 private:
  TempFolder folder_;
  std::string old_;
  std::string new_;
};

}  // namespace Zelk::Testing
