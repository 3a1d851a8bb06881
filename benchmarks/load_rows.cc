#include <malloc.h>
#include <string>

#include "contest.h"
#include "file_set.h"
#include "host.h"
#include "plain_loads.h"
#include "rows.h"
#include "stopwatch.h"

namespace Zelk::Benchmarks {
namespace {

struct Case {
  FileSet files;
  int rounds;
  bool has_goals;
  bool is_quick;
};

constexpr auto kCompact = Layout::kCompact;
constexpr auto kPretty = Layout::kPretty;
constexpr Case kCases[] = {
    {{DomainId::kMetamodel, 1, kMegabyte, kCompact}, 101, true, true},
    {{DomainId::kMetamodel, 1, kMegabyte, kPretty}, 101, true, true},
    {{DomainId::kMetamodel, 1, 10 * kMegabyte, kCompact}, 25, true, true},
    {{DomainId::kMetamodel, 1, 10 * kMegabyte, kPretty}, 25, true, true},
    {{DomainId::kMetamodel, 1, 50 * kMegabyte, kCompact}, 7, false, false},
    {{DomainId::kMetamodel, 1, 50 * kMegabyte, kPretty}, 7, false, false},
    {{DomainId::kMetamodel, 333, kMegabyte / 4, kCompact}, 5, false, false},
    {{DomainId::kMetamodel, 333, kMegabyte / 4, kPretty}, 5, false, false},
    {{DomainId::kAuthentication, 1, kMegabyte, kCompact}, 101, true, true},
    {{DomainId::kAuthentication, 1, 10 * kMegabyte, kCompact}, 25, true, true},
    {{DomainId::kAuthentication, 1, 10 * kMegabyte, kPretty}, 25, true, false},
    {{DomainId::kCli, 1, kMegabyte, kCompact}, 101, true, true},
    {{DomainId::kCli, 1, 10 * kMegabyte, kCompact}, 25, true, true},
    {{DomainId::kCli, 1, 10 * kMegabyte, kPretty}, 25, true, false},
};

/// Every contender begins with a heap that has handed back what the others used, as that of a host
/// which starts.
template <typename Work>
double SecondsFromTrimmedHeap(const Work& work) {
  malloc_trim(0);
  const Stopwatch stopwatch;
  work();
  return stopwatch.Seconds();
}

void Compare(const Case& load, benchmark::State& state, Table& table) {
  const Corpus corpus = MakeCorpus(load.files);
  const auto host = MakeHost(load.files.domain, corpus.Paths());
  Contest contest;
  const auto ours = contest.Add([&] { return SecondsFromTrimmedHeap([&] { host->CreateAll(); }); });
  const auto release = contest.Add([&] {
    const Stopwatch stopwatch;
    host->DeleteAll();
    return stopwatch.Seconds();
  });
  const auto floor =
      contest.Add([&] { return SecondsFromTrimmedHeap([&] { LoadFloor(corpus.Paths()); }); });
  const auto naive =
      contest.Add([&] { return SecondsFromTrimmedHeap([&] { LoadNaively(corpus.Paths()); }); });
  contest.Run(state);

  const auto goal = [&](Goal wanted) { return load.has_goals ? wanted : Goal::None(); };
  const auto text = [&](std::size_t contender) {
    return SecondsText(contest.MedianSeconds(contender));
  };
  const std::string name = NameOf(load.files);
  table.Add({"load / floor", name, text(ours), text(floor), contest.MedianRatio(ours, floor), "",
             goal(Goal::AtMost(1.4))});
  table.Add({"naive / load", name, text(ours), text(naive), contest.MedianRatio(naive, ours), "",
             goal(Goal::AtLeast(4))});
  table.Add({"release / load", name, text(release), text(ours), contest.MedianRatio(release, ours),
             "", goal(Goal::AtMost(0.3))});
}

}  // namespace

void RegisterLoads(const Extent& extent, Table& table) {
  for (const Case& load : kCases) {
    if (extent.is_quick && !load.is_quick) continue;
    benchmark::RegisterBenchmark(
        ("load: " + NameOf(load.files)).c_str(),
        [&load, &table](benchmark::State& state) { Compare(load, state, table); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(extent.Rounds(load.rounds));
  }
}

}  // namespace Zelk::Benchmarks
