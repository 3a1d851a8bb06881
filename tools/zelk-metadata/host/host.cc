#include "host/host.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>
#include <set>

#include "host/interrupt.h"
#include "host/root_key.h"

namespace Zelk::Tool {
namespace {

std::optional<FilePosition> PositionOf(const Message& message, const std::string& path,
                                       const DomainRow& row) {
  if (message.id != row.parse_error_id || message.arguments.size() < 2) return std::nullopt;
  const std::string& text = message.arguments[1];
  std::uint64_t offset = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), offset);
  if (parsed.ec != std::errc()) return std::nullopt;
  return PositionAt(path, offset);
}

LoadReport LoadInto(Domain& domain, const DomainRow& row, const SourceArgument& source) {
  LoadReport report{ShownName(source), row.name, {}};
  const std::optional<ServiceError> error = domain.CreateSource(source.id, source.path);
  if (!error) return report;
  for (const Message& message : error->messages) {
    report.problems.push_back({message, PositionOf(message, source.path, row)});
  }
  return report;
}

/// Of one source, as the domain answers it; nothing in a domain without fingerprints.
std::string FingerprintOf(const Domain& domain, const std::string& id) {
  const auto& kinds = domain.Kinds();
  const auto found = std::find_if(kinds.begin(), kinds.end(),
                                  [](const Kind& kind) { return kind.name == "source"; });
  if (found == kinds.end()) return "";
  return found->fingerprint.call({id}).answer.value_or("");
}

bool Means(const std::string& text, const std::string& domain, const Kind& kind) {
  const std::string prefix = domain + ":";
  const bool qualified = text.compare(0, prefix.size(), prefix) == 0;
  const std::string name = qualified ? text.substr(prefix.size()) : text;
  return name == kind.name || name == kind.name + "s";
}

}  // namespace

struct Host::Running {
  const DomainRow* row;
  std::unique_ptr<Domain> domain;
  bool has_sources;
};

std::string ProblemLine(const std::string& file, const Problem& problem) {
  const std::string position =
      problem.position ? fmt::format(":{}:{}", problem.position->line, problem.position->column)
                       : std::string();
  const std::vector<std::string> unshown = problem.message.UnshownArguments();
  const std::string arguments =
      unshown.empty() ? std::string() : fmt::format(": {}", fmt::join(unshown, ", "));
  return fmt::format("{}{}: {} [{}{}]", file, position, problem.message.Text(), problem.message.id,
                     arguments);
}

const Query<Names>* FoundKind::ListOf(const std::string& name) const {
  const auto found = std::find_if(kinds->begin(), kinds->end(),
                                  [&name](const Kind& other) { return other.name == name; });
  return found != kinds->end() && found->list.call ? &found->list : nullptr;
}

Host::Host(const DomainTable& table, HostUse use) : use_(use), table_(table) {
  for (const DomainRow& row : table) domains_.push_back({&row, row.make(), false});
}

Host::~Host() = default;

LoadReport Host::Load(const SourceArgument& source) {
  const DomainRow* const row = &DomainOf(source.path, table_);
  Running& running = RunningOf(*row);
  LoadReport report = LoadInto(*running.domain, *row, source);
  if (!report.problems.empty()) return report;
  running.has_sources = true;
  loaded_.push_back({source, row, nullptr});
  if (use_ == HostUse::kSession) KeepAlone(loaded_.back());
  return report;
}

Host::Running& Host::RunningOf(const DomainRow& row) {
  return *std::find_if(domains_.begin(), domains_.end(),
                       [&row](const Running& candidate) { return candidate.row == &row; });
}

void Host::KeepAlone(Loaded& loaded) {
  loaded.alone = loaded.row->make();
  const LoadReport report = LoadInto(*loaded.alone, *loaded.row, loaded.source);
  const std::string& id = loaded.source.id;
  const Domain& live = *RunningOf(*loaded.row).domain;
  const bool is_same =
      report.problems.empty() && FingerprintOf(*loaded.alone, id) == FingerprintOf(live, id);
  if (!is_same) loaded.alone = nullptr;
}

std::function<bool(const Host::Loaded&)> Host::Meaning(
    const std::optional<std::string>& text) const {
  const bool is_id = std::any_of(loaded_.begin(), loaded_.end(), [&text](const Loaded& loaded) {
    return text == loaded.source.id;
  });
  return [text, is_id](const Loaded& loaded) {
    const std::string& id = loaded.source.id;
    return !text || text == id || (!is_id && text == loaded.row->name + ":" + id);
  };
}

std::vector<Host::Loaded*> Host::Meant(const std::optional<std::string>& text) {
  const auto is_meant = Meaning(text);
  std::vector<Loaded*> meant;
  for (const DomainRow& row : table_) {
    const auto begin = static_cast<std::ptrdiff_t>(meant.size());
    for (Loaded& loaded : loaded_) {
      if (loaded.row == &row && is_meant(loaded)) meant.push_back(&loaded);
    }
    std::sort(meant.begin() + begin, meant.end(), [](const Loaded* left, const Loaded* right) {
      return left->source.id < right->source.id;
    });
  }
  return meant;
}

std::size_t Host::Delete(const std::string& text) {
  std::size_t deleted = 0;
  for (const Loaded* const meant : Meant(text)) {
    const bool is_gone = !RunningOf(*meant->row).domain->DeleteSource(meant->source.id);
    deleted += is_gone ? 1 : 0;
  }
  loaded_.erase(std::remove_if(loaded_.begin(), loaded_.end(), Meaning(text)), loaded_.end());
  for (Running& running : domains_) {
    running.has_sources =
        std::any_of(loaded_.begin(), loaded_.end(),
                    [&running](const Loaded& loaded) { return loaded.row == running.row; });
  }
  return deleted;
}

std::vector<ReloadReport> Host::Reload(const std::optional<std::string>& text) {
  const std::vector<Loaded*> meant = Meant(text);
  std::vector<ReloadReport> reports;
  for (Running& running : domains_) {
    std::vector<Loaded*> sources;
    std::copy_if(meant.begin(), meant.end(), std::back_inserter(sources),
                 [&running](const Loaded* loaded) { return loaded->row == running.row; });
    if (sources.empty()) continue;
    boost::optional<std::string> id;
    if (text) id = sources.front()->source.id;
    for (ReloadReport& report : ReloadIn(running, sources, id)) {
      reports.push_back(std::move(report));
    }
  }
  return reports;
}

std::vector<ReloadReport> Host::ReloadIn(Running& running, const std::vector<Loaded*>& sources,
                                         const boost::optional<std::string>& id) {
  Names before;
  for (const Loaded* const loaded : sources) {
    before.push_back(FingerprintOf(*running.domain, loaded->source.id));
  }
  if (!IsInterrupted()) running.domain->ReloadSource(id);
  std::vector<ReloadReport> reports;
  std::string failed;
  for (std::size_t i = 0; i < sources.size(); ++i) {
    if (IsInterrupted()) {
      const bool is_changed = FingerprintOf(*running.domain, sources[i]->source.id) != before[i];
      // What it holds is read once it is asked for.
      if (is_changed) sources[i]->alone = nullptr;
      continue;
    }
    reports.push_back(ReportOf(running, *sources[i], before[i], failed));
  }
  return reports;
}

ReloadReport Host::ReportOf(Running& running, Loaded& loaded, const std::string& before,
                            std::string& failed) {
  const SourceArgument& source = loaded.source;
  const std::string after = FingerprintOf(*running.domain, source.id);
  ReloadReport report{
      source.id, ShownName(source), running.row->name, ReloadReport::State::kSame, {}, {}, {}};
  auto alone = running.row->make();
  report.problems = LoadInto(*alone, *running.row, source).problems;
  const bool loads = report.problems.empty();
  const bool is_answered = loads && FingerprintOf(*alone, source.id) == after;
  if (after != before) {
    report.state = ReloadReport::State::kChanged;
    report.problems.clear();
  } else if (!is_answered) {
    report.state = ReloadReport::State::kKept;
    const DomainRow* const row = FindDomain(source.path, table_);
    if (row != nullptr && row != running.row) {
      report.moved_to = row->name;
      report.problems.clear();
    }
    if (loads) report.behind = failed;
  }
  if (is_answered) loaded.alone = std::move(alone);
  if (!loads && failed.empty()) failed = source.id;
  return report;
}

Names Host::SourceIds() const {
  std::set<std::string> ids;
  for (const Loaded& loaded : loaded_) ids.insert(loaded.source.id);
  return {ids.begin(), ids.end()};
}

std::vector<FoundKind> Host::FindKinds(const std::string& text) const {
  std::vector<FoundKind> found;
  for (const bool has_sources : {true, false}) {
    for (const Running& running : domains_) {
      if (running.has_sources != has_sources) continue;
      for (const Kind& kind : running.domain->Kinds()) {
        if (Means(text, running.row->name, kind))
          found.push_back({running.row, &kind, has_sources, &running.domain->Kinds()});
      }
    }
  }
  return found;
}

Names Host::KindNames() const {
  Names names;
  for (const Running& running : domains_) {
    for (const Kind& kind : running.domain->Kinds()) {
      if (std::find(names.begin(), names.end(), kind.name) == names.end()) {
        names.push_back(kind.name);
      }
    }
  }
  return names;
}

std::vector<SourceOutline> Host::Outlines(std::vector<LoadReport>& failures) {
  std::vector<SourceOutline> outlines;
  for (const Loaded* const loaded : Meant(std::nullopt)) {
    if (loaded->alone) {
      outlines.push_back({loaded->source, loaded->row, loaded->alone->MakeOutline()});
      continue;
    }
    const std::unique_ptr<Domain> domain = loaded->row->make();
    LoadReport report = LoadInto(*domain, *loaded->row, loaded->source);
    if (report.problems.empty()) {
      outlines.push_back({loaded->source, loaded->row, domain->MakeOutline()});
    } else {
      failures.push_back(std::move(report));
    }
  }
  return outlines;
}

std::vector<Section> Host::About(const DomainRow& row, const Subject& subject) const {
  std::vector<Subject> levels{subject};
  for (const Running& running : domains_) {
    if (!running.has_sources) continue;
    std::vector<Subject> known = running.domain->Levels(subject);
    if (known.size() > levels.size()) levels = std::move(known);
  }
  std::vector<Section> sections;
  for (const Running& running : domains_) {
    if (running.row == &row || !running.has_sources) continue;
    for (Section& section : running.domain->About(levels)) sections.push_back(std::move(section));
  }
  return sections;
}

std::optional<Outcome<UsagePage>> Host::Usage(const Names& words, const DomainRow*& row) const {
  for (const Running& running : domains_) {
    if (!running.has_sources) continue;
    row = running.row;
    if (auto usage = running.domain->Usage(words)) return usage;
  }
  return std::nullopt;
}

LoadReport LoadAlone(const std::string& path, const DomainTable& table) {
  const DomainRow& row = DomainOf(path, table);
  return LoadInto(*row.make(), row, {DefaultSourceId(path), path});
}

}  // namespace Zelk::Tool
