#include "file_set.h"

namespace Zelk::Benchmarks {

std::string NameOf(const FileSet& set) {
  std::string name = NameOf(set.domain);
  name += set.files == 1 ? ", " : ", " + std::to_string(set.files) + " files of ";
  name += set.bytes >= kMegabyte ? std::to_string(set.bytes / kMegabyte) + " MB"
                                 : std::to_string(set.bytes / 1000) + " kB";
  return name + (set.layout == Layout::kCompact ? ", compact" : ", pretty");
}

Corpus MakeCorpus(const FileSet& set) {
  return Corpus({set.domain, set.bytes, set.layout, 1}, set.files);
}

}  // namespace Zelk::Benchmarks
