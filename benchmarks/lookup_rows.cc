#include <algorithm>
#include <functional>
#include <google/protobuf/descriptor.h>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "contest.h"
#include "corpus.h"
#include "descriptors.h"
#include "lookups.h"
#include "rows.h"
#include "stopwatch.h"

namespace Zelk::Benchmarks {
namespace {

namespace Proto = ::google::protobuf;

/// Components have much more to say about their interfaces than about who may call them.
constexpr std::size_t BytesOfFile(DomainId domain) {
  switch (domain) {
    case DomainId::kMetamodel:
      return 250'000;
    case DomainId::kAuthentication:
      return 25'000;
    case DomainId::kCli:
      break;
  }
  return 80'000;
}

constexpr std::size_t kKeys = 2'000;
/// The number of sources at which lookups have goals.
constexpr std::size_t kManySources = 333;
constexpr double kSecondsOfRound = 2e-3;

/// A container that grows, and the pool of the same interfaces.
template <typename Domain>
class Grown {
 public:
  explicit Grown(DomainId domain) : domain_(domain) {}

  void GrowTo(std::size_t sources) {
    if (sources == sources_) return;
    for (; sources_ < sources; ++sources_) Grow(host_, sources_ + 1);
    last_ = std::make_unique<HostOf<Domain>>();
    Grow(*last_, sources_);
    if constexpr (std::is_same_v<Domain, MetamodelDomain>) GrowPool();
  }

  const auto& Container() const { return host_.Container(); }

  const auto& Last() const { return last_->Container(); }

  const Proto::DescriptorPool& Pool() const { return pool_; }

 private:
  void Grow(HostOf<Domain>& host, std::size_t number) const {
    const Corpus corpus({domain_, BytesOfFile(domain_), Layout::kCompact, number}, 1);
    host.Add(corpus.Paths().front());
    host.CreateAll();
  }

  void GrowPool() {
    for (const std::string& name : Container()->ListComponents()) {
      if (pool_.FindFileByName(name) != nullptr) continue;
      if (pool_.BuildFile(DescriptorsOf(*Container()->ComponentInfo(name)->info)) == nullptr) {
        throw std::runtime_error("protobuf refuses " + name);
      }
    }
  }

  DomainId domain_;
  std::size_t sources_ = 0;
  HostOf<Domain> host_;
  std::unique_ptr<HostOf<Domain>> last_;
  Proto::DescriptorPool pool_;
};

using Ask = std::function<std::size_t(std::size_t)>;

/// The same question to the pool; empty where it knows nothing of the kind.
Ask AskPool(const Lookup& lookup, const Proto::DescriptorPool& pool) {
  std::function<bool(const std::string&)> find;
  if (lookup.name == "Metamodel, service") {
    find = [&pool](const std::string& name) { return pool.FindServiceByName(name) != nullptr; };
  } else if (lookup.name == "Metamodel, structure") {
    find = [&pool](const std::string& name) { return pool.FindMessageTypeByName(name) != nullptr; };
  } else if (lookup.name == "Metamodel, enumeration") {
    find = [&pool](const std::string& name) { return pool.FindEnumTypeByName(name) != nullptr; };
  } else {
    return nullptr;
  }
  std::vector<std::string> names;
  for (const Key& key : lookup.keys) names.push_back(DescriptorName(key.id));
  std::size_t next = 0;
  return [names = std::move(names), find, next](std::size_t times) mutable {
    std::size_t answers = 0;
    for (; times > 0; --times) {
      if (find(names[next])) ++answers;
      if (++next == names.size()) next = 0;
    }
    return answers;
  };
}

/// As often as fits in a round, but not so seldom that single answers show.
std::size_t TimesOf(const Ask& ask) {
  constexpr std::size_t kProbes = 16;
  const Stopwatch stopwatch;
  ask(kProbes);
  const double seconds = stopwatch.Seconds() / static_cast<double>(kProbes);
  return std::clamp(static_cast<std::size_t>(kSecondsOfRound / seconds), kProbes, kKeys);
}

std::function<double()> Timed(const Ask& ask, Aim aim) {
  const std::size_t times = TimesOf(ask);
  return [ask, aim, times] {
    const Stopwatch stopwatch;
    const std::size_t answers = ask(times);
    const double seconds = stopwatch.Seconds();
    if (answers != (aim == Aim::kMisses ? 0 : times)) {
      throw std::runtime_error("a lookup does not answer what it is to");
    }
    return seconds / static_cast<double>(times);
  };
}

/// What a lookup took at each number of sources.
using Growth = std::map<std::string, std::map<std::size_t, double>>;

struct Stage {
  std::size_t sources;
  Aim aim;
  bool is_last;
};

/// What one more source adds, between the fewest and the most sources.
void AddStep(const std::string& name, const std::map<std::size_t, double>& seconds, Table& table) {
  const auto& [few, least] = *seconds.begin();
  const auto& [many, most] = *seconds.rbegin();
  if (few == many) return;
  table.Add({"step of one more source", name, SecondsText(most), SecondsText(least),
             (most - least) * 1e9 / static_cast<double>(many - few), " ns", Goal::None()});
}

/// In microseconds. A lookup walks the sources without an index, and a hit goes on inside one.
Goal GoalOf(Aim aim) {
  return Goal::AtMost(aim == Aim::kMisses ? 4 : 6);
}

template <typename Domain>
void Measure(Grown<Domain>& grown, const Stage& stage, Growth& growth, benchmark::State& state,
             Table& table) {
  RandomText random(stage.sources);
  grown.GrowTo(stage.sources);
  const auto lookups = Lookups(grown.Container(), grown.Last(), stage.aim, kKeys, random);
  constexpr std::size_t kNoPeer = SIZE_MAX;
  Contest contest;
  std::vector<std::pair<std::size_t, std::size_t>> contenders;
  for (const Lookup& lookup : lookups) {
    const std::size_t ours = contest.Add(Timed(lookup.ask, stage.aim));
    const Ask peer = AskPool(lookup, grown.Pool());
    contenders.emplace_back(ours, peer ? contest.Add(Timed(peer, stage.aim)) : kNoPeer);
  }
  contest.Run(state);
  for (std::size_t number = 0; number < lookups.size(); ++number) {
    const auto [ours, peer] = contenders[number];
    const double seconds = contest.MedianSeconds(ours);
    const std::string name = lookups[number].name + ", " + NameOf(stage.aim);
    growth[name][stage.sources] = seconds;
    state.counters[lookups[number].name] = benchmark::Counter(seconds * 1e9);
    if (stage.sources == kManySources) {
      table.Add({"lookup, 333 sources", name, SecondsText(seconds),
                 peer == kNoPeer ? "" : SecondsText(contest.MedianSeconds(peer)), seconds * 1e6,
                 " us", lookups[number].has_goal ? GoalOf(stage.aim) : Goal::None()});
    }
    if (stage.is_last && stage.aim != Aim::kUniformHits) AddStep(name, growth[name], table);
  }
}

template <typename Domain>
void MeasureLists(Grown<Domain>& grown, benchmark::State& state, Table& table) {
  grown.GrowTo(kManySources);
  const auto listings = Listings(grown.Container());
  Contest contest;
  std::vector<std::size_t> names(listings.size());
  for (std::size_t number = 0; number < listings.size(); ++number) {
    contest.Add([&, number] {
      const Stopwatch stopwatch;
      names[number] = listings[number].list();
      return stopwatch.Seconds();
    });
  }
  contest.Run(state);
  for (std::size_t number = 0; number < listings.size(); ++number) {
    const double seconds = contest.MedianSeconds(number);
    table.Add({"list, 333 sources, per name", listings[number].name, SecondsText(seconds),
               std::to_string(names[number]) + " names",
               seconds * 1e9 / static_cast<double>(names[number]), " ns", Goal::None()});
  }
}

template <typename Domain>
void RegisterDomain(DomainId domain, const Extent& extent, Table& table) {
  const auto grown = std::make_shared<Grown<Domain>>(domain);
  const auto growth = std::make_shared<Growth>();
  std::vector<std::size_t> numbers = {1, 10, 100, kManySources, 1000};
  if (extent.is_quick) numbers = {1, kManySources};
  const std::string name = NameOf(domain);
  for (const std::size_t sources : numbers) {
    for (const Aim aim : {Aim::kUniformHits, Aim::kLastHits, Aim::kMisses}) {
      const Stage stage = {sources, aim, sources == numbers.back()};
      benchmark::RegisterBenchmark(
          ("lookups: " + name + ", " + NameOf(aim) + ", " + std::to_string(sources) + " sources")
              .c_str(),
          [=, &table](benchmark::State& state) { Measure(*grown, stage, *growth, state, table); })
          ->UseManualTime()
          ->Iterations(extent.Rounds(25));
    }
    if (sources != kManySources) continue;
    benchmark::RegisterBenchmark(
        ("lists: " + name).c_str(),
        [=, &table](benchmark::State& state) { MeasureLists(*grown, state, table); })
        ->UseManualTime()
        ->Iterations(extent.Rounds(15));
  }
}

}  // namespace

void RegisterLookups(const Extent& extent, Table& table) {
  RegisterDomain<MetamodelDomain>(DomainId::kMetamodel, extent, table);
  RegisterDomain<AuthenticationDomain>(DomainId::kAuthentication, extent, table);
  RegisterDomain<CliDomain>(DomainId::kCli, extent, table);
}

}  // namespace Zelk::Benchmarks
