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
    {{DomainId::kMetamodel, 333, kMegabyte / 4, kCompact}, 5, true, false},
    {{DomainId::kMetamodel, 333, kMegabyte / 4, kPretty}, 5, true, false},
    {{DomainId::kAuthentication, 1, kMegabyte, kCompact}, 101, true, true},
    {{DomainId::kAuthentication, 1, 10 * kMegabyte, kCompact}, 25, true, true},
    {{DomainId::kAuthentication, 1, 10 * kMegabyte, kPretty}, 25, true, false},
    {{DomainId::kCli, 1, kMegabyte, kCompact}, 101, true, true},
    {{DomainId::kCli, 1, 10 * kMegabyte, kCompact}, 25, true, true},
    {{DomainId::kCli, 1, 10 * kMegabyte, kPretty}, 25, true, false},
};

template <typename Work>
double SecondsOf(const Work& work) {
  const Stopwatch stopwatch;
  work();
  return stopwatch.Seconds();
}

/// The heap has handed back what the others used, as that of a host which starts.
template <typename Work>
double SecondsOnAColdHeap(const Work& work) {
  malloc_trim(0);
  return SecondsOf(work);
}

/// The same work is done and undone just before, as in a host that has loaded before.
template <typename Work, typename Undo>
double SecondsOnAWarmHeap(const Work& work, const Undo& undo) {
  work();
  undo();
  return SecondsOf(work);
}

void Compare(const Case& load, benchmark::State& state, Table& table) {
  const Corpus corpus = MakeCorpus(load.files);
  const auto host = MakeHost(load.files.domain, corpus.Paths());
  const auto create = [&] { host->CreateAll(); };
  const auto destroy = [&] { host->DeleteAll(); };
  const auto load_floor = [&] { LoadFloor(corpus.Paths()); };
  const auto load_naively = [&] { LoadNaively(corpus.Paths()); };
  Contest contest;
  const auto cold = contest.Add([&] { return SecondsOnAColdHeap(create); });
  const auto release = contest.Add([&] { return SecondsOf(destroy); });
  const auto cold_floor = contest.Add([&] { return SecondsOnAColdHeap(load_floor); });
  const auto naive = contest.Add([&] { return SecondsOnAColdHeap(load_naively); });
  const auto warm = contest.Add([&] { return SecondsOnAWarmHeap(create, destroy); });
  const auto warm_release = contest.Add([&] { return SecondsOf(destroy); });
  const auto warm_floor = contest.Add([&] { return SecondsOnAWarmHeap(load_floor, [] {}); });
  contest.Run(state);

  const bool is_metamodel = load.files.domain == DomainId::kMetamodel;
  const auto add = [&](const char* row, std::size_t one, std::size_t other, double goal) {
    table.Add({row, NameOf(load.files), SecondsText(contest.MedianSeconds(one)),
               SecondsText(contest.MedianSeconds(other)), contest.MedianRatio(one, other), "",
               load.has_goals ? Goal::AtMost(goal) : Goal::None()});
  };
  add("warm load / floor", warm, warm_floor, is_metamodel ? 1.4 : 1.8);
  add("cold load / floor", cold, cold_floor, is_metamodel ? 2.0 : 2.4);
  add("warm release / load", warm_release, warm, 0.4);
  add("cold release / load", release, cold, 0.4);
  table.Add({"naive / cold load", NameOf(load.files), SecondsText(contest.MedianSeconds(cold)),
             SecondsText(contest.MedianSeconds(naive)), contest.MedianRatio(naive, cold), "",
             Goal::None()});
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
