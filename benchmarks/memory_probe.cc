#include <cstdio>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis_files.h"
#include "heap_use.h"
#include "host.h"
#include "service_calls.h"

// Measures, in a process of its own, what cannot be measured beside anything else.
//
//   memory_probe load DOMAIN PATH...   bytes that loading the files leaves on the heap, the most
//                                      that were resident, and those that stay resident
//   memory_probe lint DOMAIN PATH...   the most bytes on the heap while the files are linted
//   memory_probe diff DOMAIN PATH...   the most bytes on the heap while the files and an edited
//                                      version of them are read, and while they are compared
//   memory_probe services              allocations of each service call and of its container's

namespace {

using namespace Zelk::Benchmarks;  // NOLINT(google-build-using-namespace): a program

/// A line of a file of /proc, such as "VmHWM:   123 kB", in bytes.
std::size_t BytesIn(const char* path, const std::string& key) {
  std::ifstream file(path);
  for (std::string word; file >> word;) {
    std::size_t kilobytes = 0;
    if (word == key && file >> kilobytes) return kilobytes * 1024;
  }
  throw std::runtime_error("no " + key + " in " + path);
}

std::size_t ResidentBytes() {
  return BytesIn("/proc/self/smaps_rollup", "Rss:");
}

void ResetPeakResident() {
  std::ofstream file("/proc/self/clear_refs");
  file << 5;
  if (!file.flush()) throw std::runtime_error("cannot reset the peak");
}

int MeasureLoad(int domain, const std::vector<std::string>& paths) {
  const auto host = MakeHost(static_cast<DomainId>(domain), paths);
  ResetPeakResident();
  const std::size_t live = LiveBytes();
  const std::size_t resident = ResidentBytes();
  host->CreateAll();
  const std::size_t peak = BytesIn("/proc/self/status", "VmHWM:");
  std::printf("%zu %zu %zu\n", LiveBytes() - live, peak - resident, ResidentBytes() - resident);
  return 0;
}

int MeasureLint(int domain, const std::vector<std::string>& paths) {
  const std::size_t live = LiveBytes();
  ResetPeak();
  LintFiles(static_cast<DomainId>(domain), paths);
  std::printf("%zu\n", PeakBytes() - live);
  return 0;
}

int MeasureDiff(int domain, const std::vector<std::string>& paths) {
  const std::size_t live = LiveBytes();
  ResetPeak();
  const Versions versions(static_cast<DomainId>(domain), paths, Edit::kTexts);
  const std::size_t loaded = PeakBytes();
  ResetPeak();
  versions.Compare();
  std::printf("%zu %zu\n", loaded - live, PeakBytes() - live);
  return 0;
}

std::size_t AllocationsOf(const std::function<void(std::size_t)>& call) {
  // What is done once, such as binding a symbol, is not a cost of the call.
  call(1);
  const std::size_t before = Allocations();
  call(1);
  return Allocations() - before;
}

int MeasureServices() {
  for (const ServiceCall& call : ServiceCalls()) {
    std::printf("%zu %zu\n", AllocationsOf(call.ask_service), AllocationsOf(call.ask_container));
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() > 2 && args[0] == "load") {
    return MeasureLoad(std::stoi(args[1]), {args.begin() + 2, args.end()});
  }
  if (args.size() > 2 && args[0] == "lint") {
    return MeasureLint(std::stoi(args[1]), {args.begin() + 2, args.end()});
  }
  if (args.size() > 2 && args[0] == "diff") {
    return MeasureDiff(std::stoi(args[1]), {args.begin() + 2, args.end()});
  }
  if (args.size() == 1 && args[0] == "services") return MeasureServices();
  std::fputs("usage: memory_probe load|lint|diff DOMAIN PATH... | memory_probe services\n", stderr);
  return 2;
}
