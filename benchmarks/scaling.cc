#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

#include "analysis_files.h"
#include "growth.h"
#include "heap_use.h"
#include "host.h"
#include "shapes.h"
#include "stopwatch.h"

// How the cost of loading, linting and comparing a file grows with its size: files of four sizes in
// every shape, three for lint and diff, and the exponent of the power law that fits best. 1 is
// linear. The exit status is 1 when memory, which is counted and not timed, grows faster than the
// file where it should not.

namespace {

using namespace Zelk::Benchmarks;  // NOLINT(google-build-using-namespace): a program
namespace fs = std::filesystem;

constexpr std::size_t kSizes = 4;
constexpr std::size_t kAnalysisSizes = 3;
constexpr int kRuns = 3;
constexpr double kMostMemoryExponent = 1.15;
/// What takes less is lost in what every release costs, and has no exponent to speak of.
constexpr double kShortestReleaseSeconds = 1e-3;

struct Cost {
  double bytes;
  double load_seconds;
  double release_seconds;
  double peak_bytes;
};

using Series = std::array<Cost, kSizes>;

Cost Load(DomainId domain, const fs::path& path) {
  const auto host = MakeHost(domain, {path.string()});
  const auto before = static_cast<double>(LiveBytes());
  ResetPeak();
  const Stopwatch load;
  host->CreateAll();
  Cost cost{};
  cost.load_seconds = load.Seconds();
  cost.peak_bytes = static_cast<double>(PeakBytes()) - before;
  const Stopwatch release;
  host->DeleteAll();
  cost.release_seconds = release.Seconds();
  return cost;
}

/// The best of several runs, as the one that was disturbed least.
Cost BestLoad(const Shape& shape, std::size_t size, const fs::path& path) {
  std::ofstream(path, std::ios::binary) << shape.make(size);
  Cost best = Load(shape.domain, path);
  for (int run = 1; run < kRuns; ++run) {
    const Cost cost = Load(shape.domain, path);
    best.load_seconds = std::min(best.load_seconds, cost.load_seconds);
    best.release_seconds = std::min(best.release_seconds, cost.release_seconds);
  }
  best.bytes = static_cast<double>(fs::file_size(path));
  return best;
}

double Exponent(const Series& series, double Cost::*cost) {
  std::vector<std::pair<double, double>> points;
  for (const Cost& point : series) points.emplace_back(point.bytes, point.*cost);
  return GrowthExponent(points);
}

/// Prints the row of a shape; false when its memory grows too fast.
bool Report(const Shape& shape, const Series& series) {
  const double memory = Exponent(series, &Cost::peak_bytes);
  const Cost& last = series.back();
  std::printf("%-36s", shape.name);
  for (const Cost& cost : series) std::printf("%8.1f", cost.load_seconds * 1e3);
  std::printf("%8.1f%8.1f   %6.2f", last.release_seconds * 1e3, last.peak_bytes / last.bytes,
              Exponent(series, &Cost::load_seconds));
  if (last.release_seconds < kShortestReleaseSeconds) {
    std::printf("%8s", "-");
  } else {
    std::printf("%8.2f", Exponent(series, &Cost::release_seconds));
  }
  std::printf("%7.2f%s\n", memory, shape.is_linear ? "" : "  quadratic by its data");
  std::fflush(stdout);
  return !shape.is_linear || memory <= kMostMemoryExponent;
}

struct AnalysisCost {
  double bytes;
  double seconds;
  double peak_bytes;
};

/// Lints the file, or compares it with an edited version of itself.
using Analyse = void (*)(DomainId domain, const std::string& path);

AnalysisCost CostOf(Analyse analyse, const Shape& shape, std::size_t size, const fs::path& path) {
  std::ofstream(path, std::ios::binary) << shape.make(size);
  const auto before = static_cast<double>(LiveBytes());
  ResetPeak();
  const Stopwatch stopwatch;
  analyse(shape.domain, path.string());
  const double seconds = stopwatch.Seconds();
  return {static_cast<double>(fs::file_size(path)), seconds,
          static_cast<double>(PeakBytes()) - before};
}

/// Prints the row of a shape; false when the memory grows too fast.
bool ReportAnalysis(Analyse analyse, const Shape& shape, const fs::path& path) {
  std::vector<std::pair<double, double>> seconds;
  std::vector<std::pair<double, double>> peaks;
  std::printf("%-36s", shape.name);
  std::size_t size = shape.smallest;
  for (std::size_t i = 0; i < kAnalysisSizes; ++i, size *= 4) {
    const AnalysisCost cost = CostOf(analyse, shape, size, path);
    seconds.emplace_back(cost.bytes, cost.seconds);
    peaks.emplace_back(cost.bytes, cost.peak_bytes);
    std::printf("%8.1f", cost.seconds * 1e3);
  }
  const double memory = GrowthExponent(peaks);
  std::printf("%8.1f%8.2f%8.2f%s\n", peaks.back().second / peaks.back().first,
              GrowthExponent(seconds), memory, shape.is_linear ? "" : "  quadratic by its data");
  std::fflush(stdout);
  return !shape.is_linear || memory <= kMostMemoryExponent;
}

void Lint(DomainId domain, const std::string& path) {
  LintFiles(domain, {path});
}

void Diff(DomainId domain, const std::string& path) {
  Versions(domain, {path}, Edit::kTexts).Compare();
}

}  // namespace

int main() {
  std::puts(
      "                                    load, ms, of files of       of the largest\n"
      "                                       1 MB    4 MB   16 MB   64 MB release   peak/   "
      "exponents of\n"
      "shape                                (path: 0.5, 2, 8, 32 kB)        ms    size     "
      "load release memory");
  const fs::path path = fs::temp_directory_path() / ("zelk-scaling-" + std::to_string(getpid()));
  bool is_linear = true;
  for (const Shape& shape : Shapes()) {
    Series series{};
    std::size_t size = shape.smallest;
    for (Cost& cost : series) {
      cost = BestLoad(shape, size, path);
      size *= 4;
    }
    is_linear = Report(shape, series) && is_linear;
  }
  for (const auto& [name, analyse] : {std::pair("lint", &Lint), std::pair("diff", &Diff)}) {
    std::printf(
        "\n                                    %s, ms, of files of   largest  exponents of\n"
        "shape                                  1 MB    4 MB   16 MB   peak/   time  memory\n",
        name);
    for (const Shape& shape : Shapes()) {
      is_linear = ReportAnalysis(analyse, shape, path) && is_linear;
    }
  }
  fs::remove(path);
  return is_linear ? 0 : 1;
}
