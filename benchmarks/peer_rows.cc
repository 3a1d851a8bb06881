#include <functional>
#include <google/protobuf/descriptor.h>
#include <google/protobuf/util/json_util.h>
#include <malloc.h>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "contest.h"
#include "descriptors.h"
#include "file_set.h"
#include "host.h"
#include "plain_loads.h"
#include "rows.h"
#include "stopwatch.h"

namespace Zelk::Benchmarks {
namespace {

namespace Proto = ::google::protobuf;

/// The files of a set once more, as protobuf reads the same interfaces.
class DescriptorFiles {
 public:
  explicit DescriptorFiles(const Corpus& corpus) {
    HostOf<MetamodelDomain> host;
    for (const std::string& path : corpus.Paths()) host.Add(path);
    host.CreateAll();
    for (const std::string& name : host.Container()->ListComponents()) {
      Write(DescriptorsOf(*host.Container()->ComponentInfo(name)->info));
    }
  }

  const std::vector<std::string>& Texts() const { return texts_; }

  const std::vector<std::string>& Binaries() const { return binaries_; }

 private:
  void Write(const Proto::FileDescriptorProto& file) {
    std::string text;
    if (!Proto::util::MessageToJsonString(file, &text).ok()) {
      throw std::runtime_error("no JSON of a descriptor");
    }
    texts_.push_back(folder_.Write(file.name() + ".json", text));
    binaries_.push_back(folder_.Write(file.name() + ".bin", file.SerializeAsString()));
  }

  Testing::TempFolder folder_;
  std::vector<std::string> texts_;
  std::vector<std::string> binaries_;
};

bool ParseText(const std::string& text, Proto::FileDescriptorProto& file) {
  return Proto::util::JsonStringToMessage(text, &file).ok();
}

bool ParseBinary(const std::string& bytes, Proto::FileDescriptorProto& file) {
  return file.ParseFromString(bytes);
}

/// How long it takes until the pool is there; releasing it does not count.
template <typename Parse>
double SecondsOfPool(const std::vector<std::string>& paths, const Parse& parse) {
  malloc_trim(0);
  const Stopwatch stopwatch;
  Proto::DescriptorPool pool;
  Proto::FileDescriptorProto file;
  for (const std::string& path : paths) {
    file.Clear();
    if (!parse(ReadFile(path), file) || pool.BuildFile(file) == nullptr) {
      throw std::runtime_error("protobuf refuses " + path);
    }
  }
  return stopwatch.Seconds();
}

void Compare(const FileSet& set, benchmark::State& state, Table& table) {
  const Corpus corpus = MakeCorpus(set);
  const DescriptorFiles descriptors(corpus);
  const auto host = MakeHost(set.domain, corpus.Paths());
  Contest contest;
  const auto ours = contest.Add([&] {
    malloc_trim(0);
    const Stopwatch stopwatch;
    host->CreateAll();
    const double seconds = stopwatch.Seconds();
    host->DeleteAll();
    return seconds;
  });
  const auto text = contest.Add([&] { return SecondsOfPool(descriptors.Texts(), ParseText); });
  const auto binary =
      contest.Add([&] { return SecondsOfPool(descriptors.Binaries(), ParseBinary); });
  contest.Run(state);
  const auto add = [&](const char* row, std::size_t peer, Goal goal) {
    table.Add({row, NameOf(set), SecondsText(contest.MedianSeconds(ours)),
               SecondsText(contest.MedianSeconds(peer)), contest.MedianRatio(peer, ours), "",
               goal});
  };
  add("protobuf's JSON / load", text, Goal::AtLeast(4.5));
  add("protobuf's binary / load", binary, Goal::AtLeast(1.0));
}

}  // namespace

void RegisterPeer(const Extent& extent, Table& table) {
  const FileSet set = {DomainId::kMetamodel, extent.is_quick ? std::size_t{20} : std::size_t{333},
                       kMegabyte / 4, Layout::kCompact};
  benchmark::RegisterBenchmark(
      ("peer: " + NameOf(set)).c_str(),
      [set, &table](benchmark::State& state) { Compare(set, state, table); })
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond)
      ->Iterations(extent.Rounds(7));
}

}  // namespace Zelk::Benchmarks
