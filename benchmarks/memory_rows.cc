#include <vector>

#include <benchmark/benchmark.h>

#include "corpus.h"
#include "file_set.h"
#include "probe.h"
#include "rows.h"

namespace Zelk::Benchmarks {
namespace {

constexpr FileSet kSets[] = {
    {DomainId::kMetamodel, 1, 10 * kMegabyte, Layout::kCompact},
    {DomainId::kMetamodel, 1, 10 * kMegabyte, Layout::kPretty},
    {DomainId::kMetamodel, 333, kMegabyte / 4, Layout::kCompact},
    {DomainId::kAuthentication, 1, 10 * kMegabyte, Layout::kCompact},
    {DomainId::kCli, 1, 10 * kMegabyte, Layout::kCompact},
};

void Measure(const FileSet& set, Table& table) {
  const Corpus corpus = MakeCorpus(set);
  const std::vector<double> bytes =
      Probe(ProbeArguments("load", set.domain, corpus.Paths())).front();
  const auto size = static_cast<double>(corpus.Bytes());
  const auto add = [&](const char* row, double amount, double goal) {
    table.Add({row, NameOf(set), BytesText(amount), BytesText(size), amount / size, "",
               Goal::AtMost(goal)});
  };
  add("live heap / file", bytes.at(0), 3.0);
  add("peak resident / file", bytes.at(1), 5.5);
  add("resident after / file", bytes.at(2), 3.4);
}

}  // namespace

void RegisterMemory(const Extent& extent, Table& table) {
  for (const FileSet& set : kSets) {
    if (extent.is_quick && set.files > 1) continue;
    benchmark::RegisterBenchmark(("memory: " + NameOf(set)).c_str(), [&set, &table](
                                                                         benchmark::State& state) {
      for (auto _ : state) Measure(set, table);
    })->Iterations(1);
  }
}

}  // namespace Zelk::Benchmarks
