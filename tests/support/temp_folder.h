#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace Zelk::Testing {

/// A folder of its own for one test, gone with everything in it afterwards.
class TempFolder {
 public:
  TempFolder() : path_(std::filesystem::temp_directory_path() / "zelk-test-XXXXXX") {
    std::string name = path_.string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }

  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string Path(const std::string& name) const { return (path_ / name).string(); }

  /// Writes a file and answers its path.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::ofstream file(Path(name), std::ios::binary);
    file << bytes;
    if (!file.flush()) throw std::runtime_error("cannot write " + Path(name));
    return Path(name);
  }

 private:
  std::filesystem::path path_;
};

}  // namespace Zelk::Testing
