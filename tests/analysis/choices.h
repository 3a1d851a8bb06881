#pragma once

#include <filesystem>
#include <initializer_list>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/file_text.h"
#include "support/source_dir.h"

namespace Zelk::Testing {

/// All files of the fuzzer's corpus.
inline std::vector<std::string> Corpus(const std::string& name) {
  std::set<std::filesystem::path> paths;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(ZELK_SOURCE_DIR "/fuzz/corpus/") + name)) {
    paths.insert(entry.path());
  }
  std::vector<std::string> texts;
  for (const auto& path : paths) texts.push_back(FileText(path.string()));
  return texts;
}

/// Random choices for generated files, few names among them so that many repeat.
class Choices {
 public:
  explicit Choices(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

  bool OneIn(std::size_t count) { return Below(count) == 0; }

  std::string Of(std::initializer_list<const char*> texts) {
    return texts.begin()[Below(texts.size())];
  }

  /// A text that no other place has, by which records are told apart.
  std::string Unique() { return "text " + std::to_string(++texts_); }

  /// Up to `most` of what `make` returns, with commas between.
  template <typename Make>
  std::string Several(std::size_t most, const Make& make) {
    std::string list;
    for (std::size_t count = Below(most + 1); count > 0; --count) {
      list += (list.empty() ? "" : ",") + make();
    }
    return list;
  }

 private:
  std::mt19937 random_;
  unsigned texts_ = 0;
};

}  // namespace Zelk::Testing
