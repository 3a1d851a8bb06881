#include "language/sources.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/interrupt.h"
#include "render/page.h"
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
    tally.complaints.push_back(ProblemLine(report.file, problem));
  }
  if (!report.problems.empty()) tally.failed.push_back(report.file);
}

void Load(Host& host, const SourceArgument& argument, std::istream& in, Progress& progress,
          Tally& tally) {
  progress.Show(fmt::format("reading {} ...", ShownName(argument)));
  const Expansion expansion = Expand(argument, in);
  for (const Unreadable& failure : expansion.failures) {
    ++tally.total;
    tally.complaints.push_back(failure.file + ": " + failure.reason);
    tally.failed.push_back(failure.file);
  }
  for (const SourceArgument& source : expansion.sources) {
    if (IsInterrupted()) return;
    ++tally.total;
    progress.Show(fmt::format("loading {} ...", ShownName(source)));
    Add(tally, host.Load(source));
  }
}

void Complain(const Tally& tally, const Streams& streams) {
  for (const std::string& complaint : tally.complaints) PrintError(streams.err, complaint);
  if (tally.failed.empty() || tally.total == 1) return;
  PrintError(streams.err, fmt::format("{} of {} sources failed to load: {}", tally.failed.size(),
                                      tally.total, fmt::join(tally.failed, ", ")));
}

}  // namespace

bool LoadSources(Host& host, const std::vector<std::string>& sources, const Streams& streams) {
  Tally tally;
  {
    Progress progress(streams.err, streams.err_terminal.is_terminal, kPatience);
    for (const std::string& source : sources) {
      Load(host, ParseSourceArgument(source), streams.in, progress, tally);
    }
  }
  Complain(tally, streams);
  return tally.failed.empty();
}

bool LoadOutlines(Host& host, std::vector<SourceOutline>& outlines, const Streams& streams) {
  std::vector<LoadReport> failures;
  {
    Progress progress(streams.err, streams.err_terminal.is_terminal, kPatience);
    progress.Show("reading every source ...");
    outlines = host.Outlines(failures);
  }
  Tally tally;
  for (const LoadReport& report : failures) Add(tally, report);
  for (const std::string& complaint : tally.complaints) PrintError(streams.err, complaint);
  return failures.empty();
}

}  // namespace Zelk::Tool
