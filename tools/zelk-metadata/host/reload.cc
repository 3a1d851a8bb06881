#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include <zelk/md5.h>

#include "host/host.h"
#include "host/input_file.h"
#include "host/interrupt.h"
#include "host/root_key.h"

// Host::Reload() and what it consists of.

namespace Zelk::Tool {
namespace {

namespace fs = std::filesystem;

/// What the services return as the fingerprint of a source that is loaded from this file. Empty for
/// anything but a regular file.
std::string FingerprintOfFile(const std::string& path) {
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return "";
  std::ifstream file(path, std::ios::binary);
  MD5 digest;
  digest.Update(MD5::hexdigest(file));
  return digest.hexdigest();
}

}  // namespace

void Host::AddFolder(const SourceArgument& folder) {
  folders_.push_back(folder);
}

bool Host::IsRemoved(const SourceArgument& source) const {
  std::error_code ignored;
  return !source.folder.empty() && fs::is_directory(source.folder, ignored) &&
         fs::status(source.path, ignored).type() == fs::file_type::not_found;
}

void Host::DeleteRemoved(std::vector<ReloadReport>& reports) {
  Erase([&](const Loaded& loaded) {
    const bool is_removed = IsRemoved(loaded.source);
    if (is_removed) {
      reports.push_back({loaded.source.id, ShownName(loaded.source), loaded.row->name,
                         ReloadReport::State::kRemoved});
      known_files_.erase(loaded.source.path);
    }
    return is_removed;
  });
}

void Host::LoadNew(std::vector<ReloadReport>& reports, const Watcher& watcher) {
  Expansion all;
  for (const SourceArgument& folder : folders_) {
    std::istringstream nothing;
    Expansion one = Expand(folder, nothing);
    std::move(one.sources.begin(), one.sources.end(), std::back_inserter(all.sources));
    std::move(one.failures.begin(), one.failures.end(), std::back_inserter(all.failures));
  }
  for (std::size_t i = 0; i < all.sources.size() && !IsInterrupted(); ++i) {
    const SourceArgument& source = all.sources[i];
    if (known_files_.count(source.path) != 0) continue;
    watcher(i + 1, all.sources.size(), source.path);
    LoadReport loaded = Load(source);
    const bool is_loaded = loaded.IsLoaded();
    reports.push_back({source.id, loaded.file, loaded.domain,
                       is_loaded ? ReloadReport::State::kNew : ReloadReport::State::kFailed, "",
                       std::move(loaded.problems)});
  }
  for (const Unreadable& failure : all.failures) {
    if (known_files_.count(failure.file) != 0) continue;
    reports.push_back(
        {"", failure.file, "", ReloadReport::State::kFailed, "", {{{"", failure.reason, {}}}}});
  }
}

void Host::ExplainKept(const Loaded& loaded, ReloadReport& report) const {
  report.state = ReloadReport::State::kKept;
  const std::string& path = loaded.source.path;
  const DomainRow* const row = FindDomain(path, table_);
  if (row != nullptr && row != loaded.row) {
    report.moved_to = row->name;
    return;
  }
  const std::string reason = WhyUnreadable(path);
  LoadReport refusal;
  if (!reason.empty()) {
    report.problems = {{{"", reason, {}}}};
  } else if (DomainOf(path, table_, refusal) == nullptr) {
    report.problems = std::move(refusal.problems);
  } else {
    report.problems = LoadInto(*loaded.row->make(), *loaded.row, loaded.source, table_).problems;
  }
}

ReloadReport Host::ReloadOne(Loaded& loaded) {
  const SourceArgument& source = loaded.source;
  ReloadReport report{source.id, ShownName(source), loaded.row->name, ReloadReport::State::kSame};
  const std::string before = FingerprintOf(loaded);
  if (FingerprintOfFile(source.path) == before) return report;
  RunningOf(*loaded.row).domain->ReloadSource(source.id);
  if (FingerprintOf(loaded) != before) {
    report.state = ReloadReport::State::kChanged;
    report.problems = LeftOutOf(source.path, *loaded.row, table_);
  } else {
    ExplainKept(loaded, report);
  }
  return report;
}

std::vector<ReloadReport> Host::Reload(const std::optional<std::string>& text,
                                       const Watcher& watcher) {
  std::vector<ReloadReport> reports;
  if (!text) DeleteRemoved(reports);
  const std::vector<Loaded*> sources = MatchingSources(text);
  for (std::size_t i = 0; i < sources.size() && !IsInterrupted(); ++i) {
    watcher(i + 1, sources.size(), ShownName(sources[i]->source));
    reports.push_back(ReloadOne(*sources[i]));
  }
  if (!text) LoadNew(reports, watcher);
  return reports;
}

}  // namespace Zelk::Tool
