#include <cstddef>
#include <string>

#include "analysis/diff/kind.h"
#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

std::string Joined(const Analysis::Diff::ExampleFiles& files) {
  std::string joined(files[0]);
  for (std::size_t i = 1; i < files.size() && !files[i].empty(); ++i) (joined += '\f') += files[i];
  return joined;
}

}  // namespace

void MakeDiffSeeds(const std::filesystem::path& corpus) {
  const SeedFolder seeds(corpus / "diff");
  for (const Analysis::Diff::Kind* kind : Analysis::Diff::Kinds()) {
    seeds.Add(kind->id, Joined(kind->example.old_files) + '\v' + Joined(kind->example.new_files));
  }
}

}  // namespace Zelk::Fuzzing
