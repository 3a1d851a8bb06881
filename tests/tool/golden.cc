#include "tool/golden.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "support/file_text.h"
#include "tool/tool_run.h"

namespace Zelk::Testing {
namespace {

/// Paths in the output must not depend on where the sources lie.
class InDataFolder {
 public:
  InDataFolder() { std::filesystem::current_path(kDataFolder); }

  InDataFolder(const InDataFolder&) = delete;
  InDataFolder& operator=(const InDataFolder&) = delete;

  ~InDataFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

std::string Transcript(const std::vector<std::string>& lines) {
  const InDataFolder in_data_folder;
  std::ostringstream transcript;
  for (const std::string& line : lines) {
    const ToolRun run = RunLine(line);
    transcript << "$ zelk-metadata " << line << '\n' << run.out;
    std::istringstream err(run.err);
    for (std::string complaint; std::getline(err, complaint);) {
      transcript << "! " << complaint << '\n';
    }
    transcript << "= " << run.status << "\n\n";
  }
  return transcript.str();
}

}  // namespace

void ExpectGolden(const std::string& name, const std::vector<std::string>& lines) {
  const std::string path = kDataFolder + "/" + name + ".golden";
  const std::string transcript = Transcript(lines);
  if (std::getenv("ZELK_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << transcript;
    return;
  }
  EXPECT_EQ(transcript, FileText(path)) << path;
}

}  // namespace Zelk::Testing
