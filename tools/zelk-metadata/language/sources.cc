#include "language/sources.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <istream>
#include <iterator>

#include "host/default_sources.h"
#include "host/interrupt.h"
#include "render/progress.h"

namespace Zelk::Tool {
namespace {

constexpr std::chrono::milliseconds kPatience{500};

/// How the sources loaded.
struct Tally {
  std::size_t total = 0;
  Names complaints;
  /// Those that failed, as the user knows them.
  Names failed;
};

void Add(Tally& tally, const LoadReport& report) {
  for (const Problem& problem : report.problems) {
    if (problem.severity != Severity::kNote) {
      tally.complaints.push_back(ProblemLine(report.file, problem));
    }
  }
  if (!report.IsLoaded()) tally.failed.push_back(report.file);
}

/// Shows what is being done, while something is.
class Progressing {
 public:
  explicit Progressing(const Streams& streams)
      : progress_(streams.err, streams.err_terminal, kPatience) {}

  void Show(const std::string& text) { progress_.Show(text); }

  Watcher Counting(const char* verb) {
    return [this, verb](std::size_t number, std::size_t total, const std::string& file) {
      progress_.Show(fmt::format("{} {} of {}: {}", verb, number, total, file));
    };
  }

 private:
  Render::Progress progress_;
};

std::vector<SourceArgument> ExpandAll(Host& host, const std::vector<std::string>& texts,
                                      std::istream& in, Progressing& progress, Tally& tally) {
  std::vector<SourceArgument> all;
  for (const std::string& text : texts) {
    const SourceArgument argument = ParseSourceArgument(text);
    progress.Show(fmt::format("reading {} ...", ShownName(argument)));
    Expansion expansion = Expand(argument, in);
    for (const Unreadable& failure : expansion.failures) {
      tally.complaints.push_back(failure.file + ": " + failure.reason);
      tally.failed.push_back(failure.file);
    }
    tally.total += expansion.failures.size() + expansion.sources.size();
    std::move(expansion.sources.begin(), expansion.sources.end(), std::back_inserter(all));
    if (IsFolder(argument)) host.AddFolder(argument);
  }
  return all;
}

void LoadAll(Host& host, const std::vector<SourceArgument>& sources, Progressing& progress,
             Tally& tally) {
  const Watcher watcher = progress.Counting("loading");
  for (std::size_t i = 0; i < sources.size() && !IsInterrupted(); ++i) {
    watcher(i + 1, sources.size(), ShownName(sources[i]));
    Add(tally, host.Load(sources[i]));
  }
}

void Complain(const Tally& tally, const Streams& streams) {
  for (const std::string& complaint : tally.complaints) streams.Complain(complaint);
  if (tally.failed.empty() || tally.total == 1) return;
  streams.Complain(fmt::format("{} of {} sources failed to load: {}", tally.failed.size(),
                               tally.total, fmt::join(tally.failed, ", ")));
}

}  // namespace

bool FindSources(const Arguments& arguments, std::vector<std::string>& sources,
                 const Streams& streams) {
  DefaultSources defaults;
  if (!arguments.no_default_sources) defaults = FindDefaultSources();
  sources = WithDefaults(defaults.sources, arguments.sources);
  if (!defaults.failure.empty()) streams.Complain(defaults.failure);
  return defaults.failure.empty();
}

bool LoadSources(Host& host, const std::vector<std::string>& sources, const Streams& streams) {
  Tally tally;
  {
    Progressing progress(streams);
    LoadAll(host, ExpandAll(host, sources, streams.in, progress, tally), progress, tally);
  }
  Complain(tally, streams);
  return tally.failed.empty();
}

bool LoadOutlines(Host& host, std::vector<SourceOutline>& outlines, const Streams& streams) {
  std::vector<LoadReport> failures;
  {
    Progressing progress(streams);
    outlines = host.Outlines(failures, progress.Counting("reading"));
  }
  Tally tally;
  for (const LoadReport& report : failures) Add(tally, report);
  for (const std::string& complaint : tally.complaints) streams.Complain(complaint);
  return failures.empty();
}

std::vector<ReloadReport> ReloadSources(Host& host, const std::optional<std::string>& text,
                                        const Streams& streams) {
  Progressing progress(streams);
  return host.Reload(text, progress.Counting("reloading"));
}

}  // namespace Zelk::Tool
