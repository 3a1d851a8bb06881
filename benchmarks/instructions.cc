#include <cstdio>
#include <exception>
#include <string>
#include <valgrind/callgrind.h>
#include <vector>

#include "file_set.h"
#include "host.h"
#include "lookups.h"
#include "service_calls.h"

// A fixed piece of work for callgrind, which counts the instructions of each row by itself; see
// scripts/instructions.

namespace {

using namespace Zelk::Benchmarks;  // NOLINT(google-build-using-namespace): a program

/// Counts what `work` does, and nothing before or after it.
template <typename Work>
void Row(const std::string& name, const Work& work) {
  CALLGRIND_ZERO_STATS;
  CALLGRIND_TOGGLE_COLLECT;
  work();
  CALLGRIND_TOGGLE_COLLECT;
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

void CountLoad(const FileSet& set) {
  const Corpus corpus = MakeCorpus(set);
  // What is done once in a process is done before.
  MakeHost(set.domain, corpus.Paths())->CreateAll();
  const auto host = MakeHost(set.domain, corpus.Paths());
  Row("load " + NameOf(set), [&] { host->CreateAll(); });
  Row("release " + NameOf(set), [&] { host->DeleteAll(); });
}

template <typename Domain>
void CountLookups(DomainId domain) {
  constexpr std::size_t kSources = 20;
  constexpr std::size_t kKeys = 200;
  const Corpus corpus = MakeCorpus({domain, kSources, 30'000, Layout::kCompact});
  HostOf<Domain> host;
  for (const std::string& path : corpus.Paths()) host.Add(path);
  host.CreateAll();
  HostOf<Domain> last;
  last.Add(corpus.Paths().back());
  last.CreateAll();
  RandomText random(1);
  for (const Aim aim : {Aim::kUniformHits, Aim::kLastHits, Aim::kMisses}) {
    for (const Lookup& lookup : Lookups(host.Container(), last.Container(), aim, kKeys, random)) {
      Row("lookup " + lookup.name + ", " + NameOf(aim), [&] { lookup.ask(kKeys); });
    }
  }
  for (const Listing& listing : Listings(host.Container())) {
    Row("list " + listing.name, [&] { listing.list(); });
  }
}

void CountServices() {
  constexpr std::size_t kCalls = 200;
  for (const ServiceCall& call : ServiceCalls()) {
    Row("service " + call.name, [&] { call.ask_service(kCalls); });
  }
}

void CountAll() {
  CountLoad({DomainId::kMetamodel, 1, 500'000, Layout::kCompact});
  CountLoad({DomainId::kMetamodel, 1, 500'000, Layout::kPretty});
  CountLoad({DomainId::kAuthentication, 1, 200'000, Layout::kCompact});
  CountLoad({DomainId::kCli, 1, 300'000, Layout::kCompact});
  CountLookups<MetamodelDomain>(DomainId::kMetamodel);
  CountLookups<AuthenticationDomain>(DomainId::kAuthentication);
  CountLookups<CliDomain>(DomainId::kCli);
  CountServices();
}

}  // namespace

int main() {
  if (RUNNING_ON_VALGRIND == 0) {
    std::fputs("instructions: this is for scripts/instructions to run\n", stderr);
    return 2;
  }
  try {
    CountAll();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "instructions: %s\n", failure.what());
    return 1;
  }
  return 0;
}
