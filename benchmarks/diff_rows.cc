#include <algorithm>

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

struct Row {
  FileSet set;
  const char* what;
  Edit edit;
  double most_seconds;
};

constexpr FileSet kLarge{DomainId::kMetamodel, 1, 10 * kMegabyte, Layout::kCompact};
constexpr FileSet kAuthentication{DomainId::kAuthentication, 1, 10 * kMegabyte, Layout::kCompact};
constexpr FileSet kCli{DomainId::kCli, 1, 10 * kMegabyte, Layout::kCompact};
constexpr FileSet kMany{DomainId::kMetamodel, 333, kMegabyte / 4, Layout::kPretty};

constexpr Row kDiffRows[] = {
    {kLarge, "one text", Edit::kOne, 1},    {kLarge, "blanks", Edit::kBlanks, 1},
    {kLarge, "all texts", Edit::kTexts, 1}, {kAuthentication, "all texts", Edit::kTexts, 1},
    {kCli, "all texts", Edit::kTexts, 1},   {kMany, "one text of each", Edit::kOne, 8},
    {kMany, "blanks", Edit::kBlanks, 8},
};

void Measure(const Row& row, benchmark::State& state, Table& table) {
  const Corpus corpus = MakeCorpus(row.set);
  Contest contest;
  const auto diff = contest.Add([&] {
    const Stopwatch stopwatch;
    Versions(row.set.domain, corpus.Paths(), row.edit).Compare();
    return stopwatch.Seconds();
  });
  contest.Run(state);
  const double seconds = contest.MedianSeconds(diff);
  table.Add({std::string("diff: ") + row.what, NameOf(row.set), SecondsText(seconds),
             SecondsText(row.most_seconds), seconds / row.most_seconds, "", Goal::AtMost(1)});
  if (row.edit != Edit::kTexts) return;
  const auto size = static_cast<double>(corpus.Bytes());
  const auto peaks = Probe(ProbeArguments("diff", row.set.domain, corpus.Paths())).front();
  const double more = std::max(peaks[1] - peaks[0], 0.0);
  table.Add({"heap of diff, more than both loads / file", NameOf(row.set), BytesText(more),
             BytesText(size), more / size, "", Goal::AtMost(4)});
}

}  // namespace

void RegisterDiff(const Extent& extent, Table& table) {
  for (const Row& row : kDiffRows) {
    if (extent.is_quick && row.set.files > 1) continue;
    benchmark::RegisterBenchmark(
        (std::string("diff: ") + row.what + ", " + NameOf(row.set)).c_str(),
        [&row, &table](benchmark::State& state) { Measure(row, state, table); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(extent.Rounds(kRounds));
  }
}

}  // namespace Zelk::Benchmarks
