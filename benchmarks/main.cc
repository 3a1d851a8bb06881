#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>

#include <benchmark/benchmark.h>

#include "rows.h"
#include "table.h"

// Measures the library beside other ways of doing the same and prints one table of ratios.
// Progress goes to the standard error stream. --quick leaves out what takes long; the other options
// are those of Google Benchmark, such as --benchmark_filter=REGEX.

namespace {

using namespace Zelk::Benchmarks;  // NOLINT(google-build-using-namespace): a program

void RunAll(const Extent& extent) {
  Table table;
  RegisterLoads(extent, table);
  RegisterPeer(extent, table);
  RegisterMemory(extent, table);
  RegisterLookups(extent, table);
  RegisterServices(extent, table);
  RegisterLint(extent, table);
  RegisterDiff(extent, table);

  benchmark::ConsoleReporter progress(benchmark::ConsoleReporter::OO_None);
  progress.SetOutputStream(&std::cerr);
  progress.SetErrorStream(&std::cerr);
  benchmark::RunSpecifiedBenchmarks(&progress);
  std::fputs(table.Text().c_str(), stdout);
}

}  // namespace

int main(int argc, char** argv) {
  Extent extent{};
  if (argc > 1 && std::strcmp(argv[1], "--quick") == 0) {
    extent.is_quick = true;
    argv[1] = argv[0];
    ++argv;
    --argc;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  try {
    RunAll(extent);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "benchmarks: %s\n", failure.what());
    return 1;
  }
  return 0;
}
