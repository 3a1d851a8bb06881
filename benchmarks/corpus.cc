#include "corpus.h"

namespace Zelk::Benchmarks {

Corpus::Corpus(const FileSpec& first, std::size_t files) {
  FileSpec spec = first;
  for (; spec.number < first.number + files; ++spec.number) {
    const std::string text = MetadataFile(spec);
    paths_.push_back(folder_.Write("c" + std::to_string(spec.number) + ".json", text));
    bytes_ += text.size();
  }
}

}  // namespace Zelk::Benchmarks
