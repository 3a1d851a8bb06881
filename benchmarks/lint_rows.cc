#include <benchmark/benchmark.h>

#include "analysis_files.h"
#include "contest.h"
#include "file_set.h"
#include "probe.h"
#include "rows.h"
#include "stopwatch.h"

namespace Zelk::Benchmarks {
namespace {

constexpr int kRounds = 5;

constexpr FileSet kSets[] = {
    {DomainId::kMetamodel, 1, 10 * kMegabyte, Layout::kCompact},
    {DomainId::kMetamodel, 333, kMegabyte / 4, Layout::kPretty},
    {DomainId::kAuthentication, 1, 10 * kMegabyte, Layout::kCompact},
    {DomainId::kCli, 1, 10 * kMegabyte, Layout::kCompact},
};

void Measure(const FileSet& set, benchmark::State& state, Table& table) {
  const Corpus corpus = MakeCorpus(set);
  const auto size = static_cast<double>(corpus.Bytes());
  Contest contest;
  const auto lint = contest.Add([&] {
    const Stopwatch stopwatch;
    LintFiles(set.domain, corpus.Paths());
    return stopwatch.Seconds();
  });
  contest.Run(state);
  const double seconds = contest.MedianSeconds(lint);
  table.Add({"lint", NameOf(set), SecondsText(seconds), BytesText(size), size / seconds / 1e6,
             " MB/s", Goal::AtLeast(20)});
  const double peak = Probe(ProbeArguments("lint", set.domain, corpus.Paths())).front().front();
  table.Add({"peak heap of lint / file", NameOf(set), BytesText(peak), BytesText(size), peak / size,
             "", Goal::AtMost(8)});
}

}  // namespace

void RegisterLint(const Extent& extent, Table& table) {
  for (const FileSet& set : kSets) {
    if (extent.is_quick && set.files > 1) continue;
    benchmark::RegisterBenchmark(
        ("lint: " + NameOf(set)).c_str(),
        [&set, &table](benchmark::State& state) { Measure(set, state, table); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(extent.Rounds(kRounds));
  }
}

}  // namespace Zelk::Benchmarks
