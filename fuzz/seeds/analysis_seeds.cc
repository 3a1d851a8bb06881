#include <string_view>

#include "analysis/lint/rule.h"
#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {

void MakeAnalysisSeeds(const std::filesystem::path& corpus) {
  const SeedFolder seeds(corpus / "analysis");
  for (const Analysis::Lint::Rule* rule : Analysis::Lint::Rules()) {
    std::string files;
    for (const std::string_view file : rule->example.files) {
      if (!files.empty() && !file.empty()) files += '\f';
      files += file;
    }
    seeds.Add(rule->id, files);
  }
}

}  // namespace Zelk::Fuzzing
