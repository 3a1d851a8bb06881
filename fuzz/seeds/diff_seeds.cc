#include <array>
#include <string_view>

#include "analysis/diff/kind.h"
#include "fuzz/seeds/seed_folder.h"

namespace Zelk::Fuzzing {
namespace {

std::string Joined(const std::array<std::string_view, 2>& files) {
  std::string joined(files[0]);
  if (!files[1].empty()) (joined += '\f') += files[1];
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
