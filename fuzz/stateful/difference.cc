#include "stateful/difference.h"

#include <cstddef>
#include <cstdlib>
#include <iostream>

#include "support/record_text.h"

namespace Zelk::Fuzzing {
namespace {

const char* KindText(const File& file) {
  constexpr const char* kKinds[] = {"nothing", "a folder", "a pipe", "", "unreadable: "};
  return kKinds[static_cast<std::size_t>(file.kind)];
}

}  // namespace

void EndWithDifference(const Difference& difference, Disk& disk) {
  std::cerr << "\nThe library and its model differ in " << difference.domain << ".\n\nDone:\n";
  for (const auto& step : difference.history) std::cerr << "  " << step << "\n";
  std::cerr << "\nFiles now:\n";
  for (std::size_t index = 0; index < Disk::kFiles; ++index) {
    const File& file = disk.At(index);
    std::cerr << "  " << index << ": " << KindText(file) << Testing::Quoted(file.text) << "\n";
  }
  std::cerr << "\nAsked: " << difference.question << "\n\nExpected:\n"
            << difference.expected << "\n\nGot:\n"
            << difference.got << "\n"
            << std::flush;
  disk.Remove();
  std::abort();
}

}  // namespace Zelk::Fuzzing
