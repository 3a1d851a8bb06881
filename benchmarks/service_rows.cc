#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "contest.h"
#include "probe.h"
#include "rows.h"
#include "service_calls.h"
#include "stopwatch.h"

namespace Zelk::Benchmarks {
namespace {

constexpr std::size_t kCalls = 10'000;

double SecondsOf(const std::function<void(std::size_t)>& call) {
  const Stopwatch stopwatch;
  call(kCalls);
  return stopwatch.Seconds() / static_cast<double>(kCalls);
}

/// A list is delivered as a copy, which costs what the list is long.
Goal GoalOf(const ServiceCall& call, double goal) {
  return call.is_list ? Goal::None() : Goal::AtMost(goal);
}

void CompareTimes(const ServiceCall& call, benchmark::State& state, Table& table) {
  Contest contest;
  const auto service = contest.Add([&] { return SecondsOf(call.ask_service); });
  const auto container = contest.Add([&] { return SecondsOf(call.ask_container); });
  contest.Run(state);
  table.Add({"service - container", call.name, SecondsText(contest.MedianSeconds(service)),
             SecondsText(contest.MedianSeconds(container)),
             contest.MedianDifference(service, container) * 1e9, " ns", GoalOf(call, 100)});
}

std::string CountText(double count) {
  return std::to_string(static_cast<long>(count));
}

void CompareAllocations(const std::vector<ServiceCall>& calls, Table& table) {
  const auto counts = Probe({"services"});
  for (std::size_t call = 0; call < calls.size(); ++call) {
    const double service = counts.at(call).at(0);
    const double container = counts.at(call).at(1);
    table.Add({"allocations of service - container", calls[call].name, CountText(service),
               CountText(container), service - container, "", GoalOf(calls[call], 0)});
  }
}

}  // namespace

void RegisterServices(const Extent& extent, Table& table) {
  const auto calls = std::make_shared<const std::vector<ServiceCall>>(ServiceCalls());
  for (std::size_t call = 0; call < calls->size(); ++call) {
    benchmark::RegisterBenchmark(("services: " + (*calls)[call].name).c_str(),
                                 [calls, call, &table](benchmark::State& state) {
                                   CompareTimes((*calls)[call], state, table);
                                 })
        ->UseManualTime()
        ->Iterations(extent.Rounds(101));
  }
  benchmark::RegisterBenchmark("services: allocations", [calls, &table](benchmark::State& state) {
    for (auto _ : state) CompareAllocations(*calls, table);
  })->Iterations(1);
}

}  // namespace Zelk::Benchmarks
