#include <exception>
#include <iostream>
#include <stdexcept>

#include "fuzz/seeds/seed_folder.h"

// Writes the seeds of all fuzzers.
// usage: fuzz_seeds PROJECT-FOLDER CORPUS-FOLDER

int main(int argc, char** argv) {
  using namespace Zelk::Fuzzing;
  try {
    if (argc != 3) throw std::invalid_argument("usage: fuzz_seeds PROJECT-FOLDER CORPUS-FOLDER");
    const std::filesystem::path sources = argv[1];
    const std::filesystem::path corpus = argv[2];
    MakeMetamodelSeeds(corpus, sources);
    MakeAuthenticationSeeds(corpus, sources);
    MakeCliSeeds(corpus, sources);
    MakeAnalysisSeeds(corpus);
    MakeDiffSeeds(corpus);
    MakeJsonMemberSeeds(corpus);
    MakeStatefulSeeds(corpus);
    return 0;
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
}
