#include "host/host.h"

#include <algorithm>
#include <fmt/format.h>
#include <new>
#include <set>

#include "host/interrupt.h"
#include "host/root_key.h"
#include "render/text.h"

namespace Zelk::Tool {
namespace {

LoadReport IdIsTaken(const SourceArgument& source, const SourceArgument& other,
                     const DomainRow& row) {
  const std::string name = ShownName(source);
  const std::string text = name == ShownName(other)
                               ? fmt::format("{} is loaded already, as '{}'", name, source.id)
                               : fmt::format("{} has the id '{}', too; write ID={} to give another",
                                             ShownName(other), source.id, name);
  return {ShownName(source), row.name, {{{row.exists_id, text, {}}}}};
}

}  // namespace

bool IsKindCalled(const std::string& text, const std::string& domain, const std::string& kind) {
  const std::string prefix = domain + ":";
  const bool qualified = text.compare(0, prefix.size(), prefix) == 0;
  const std::string name = qualified ? text.substr(prefix.size()) : text;
  return name == kind || name == kind + "s";
}

std::string FoundKind::IdsText() const {
  std::string text;
  for (std::size_t i = 0; i < std::min(ids.max, IdKinds().size()); ++i) {
    const std::string name = Render::UpperCase(IdKinds()[i]);
    text += i < ids.min ? " " + name : " [" + name + "]";
  }
  return text;
}

Names FoundKind::NamesOf(const std::string& kind_name, const Ids& before) const {
  const auto named = std::find_if(kinds->begin(), kinds->end(),
                                  [&](const Kind& other) { return other.name == kind_name; });
  if (named == kinds->end() || before.size() < named->list.ids.min) return {};
  const auto end = before.begin() + static_cast<std::ptrdiff_t>(named->list.ids.min);
  return named->list.call({before.begin(), end}).answer.value_or(Names());
}

Host::Host(const DomainTable& table, HostUse use) : use_(use), table_(table) {
  for (const DomainRow& row : table) domains_.push_back({&row, row.make(), false});
}

Host::~Host() = default;

LoadReport Host::Load(const SourceArgument& source) {
  LoadReport refusal{ShownName(source), "", {}};
  const DomainRow* const found = DomainOf(source.path, table_, refusal);
  if (found == nullptr) return refusal;
  const DomainRow& row = *found;
  const auto taken = std::find_if(loaded_.begin(), loaded_.end(), [&](const Loaded& other) {
    return other.row == &row && other.source.id == source.id;
  });
  if (taken != loaded_.end()) return IdIsTaken(source, taken->source, row);
  loaded_.push_back({source, &row});
  try {
    LoadReport report = LoadFor(loaded_.back());
    if (report.IsLoaded()) {
      RunningOf(row).has_sources = true;
      if (!source.folder.empty()) known_files_.insert(source.path);
    } else {
      loaded_.pop_back();
    }
    return report;
  } catch (const std::bad_alloc&) {
    loaded_.pop_back();
    throw;
  }
}

LoadReport Host::LoadFor(Loaded& loaded) {
  const DomainRow& row = *loaded.row;
  if (use_ == HostUse::kAnswers)
    return LoadInto(*RunningOf(row).domain, row, loaded.source, table_);
  const auto alone = row.make();
  LoadReport report = LoadInto(*alone, row, loaded.source, table_);
  if (report.IsLoaded() && use_ == HostUse::kOutlines) loaded.outline = alone->MakeOutline();
  return report;
}

Host::Running& Host::RunningOf(const DomainRow& row) {
  return *std::find_if(domains_.begin(), domains_.end(),
                       [&row](const Running& candidate) { return candidate.row == &row; });
}

std::string Host::FingerprintOf(const Loaded& loaded) {
  return RunningOf(*loaded.row).domain->FingerprintOf(loaded.source.id);
}

std::function<bool(const Host::Loaded&)> Host::SourceMatcher(
    const std::optional<std::string>& text) const {
  const bool is_id = std::any_of(loaded_.begin(), loaded_.end(), [&text](const Loaded& loaded) {
    return text == loaded.source.id;
  });
  return [text, is_id](const Loaded& loaded) {
    const std::string& id = loaded.source.id;
    return !text || text == id || (!is_id && text == loaded.row->name + ":" + id);
  };
}

std::vector<Host::Loaded*> Host::MatchingSources(const std::optional<std::string>& text) {
  const auto matches = SourceMatcher(text);
  std::vector<Loaded*> matching;
  for (const DomainRow& row : table_) {
    const auto begin = static_cast<std::ptrdiff_t>(matching.size());
    for (Loaded& loaded : loaded_) {
      if (loaded.row == &row && matches(loaded)) matching.push_back(&loaded);
    }
    std::sort(
        matching.begin() + begin, matching.end(),
        [](const Loaded* left, const Loaded* right) { return left->source.id < right->source.id; });
  }
  return matching;
}

std::size_t Host::Erase(const std::function<bool(const Loaded&)>& is_meant) {
  const auto is_erased = [&](const Loaded& loaded) {
    return is_meant(loaded) && !RunningOf(*loaded.row).domain->DeleteSource(loaded.source.id);
  };
  const std::size_t before = loaded_.size();
  loaded_.erase(std::remove_if(loaded_.begin(), loaded_.end(), is_erased), loaded_.end());
  for (Running& running : domains_) {
    running.has_sources =
        std::any_of(loaded_.begin(), loaded_.end(),
                    [&running](const Loaded& loaded) { return loaded.row == running.row; });
  }
  return before - loaded_.size();
}

std::size_t Host::Delete(const std::string& text) {
  return Erase(SourceMatcher(text));
}

Names Host::SourceIds(bool with_domains) const {
  std::set<std::string> ids;
  for (const Loaded& loaded : loaded_) {
    ids.insert((with_domains ? loaded.row->name + ":" : "") + loaded.source.id);
  }
  return {ids.begin(), ids.end()};
}

std::vector<LoadedSource> Host::Sources() {
  std::vector<LoadedSource> sources;
  for (const Loaded* const loaded : MatchingSources(std::nullopt)) {
    sources.push_back({loaded->source, loaded->row});
  }
  return sources;
}

Record Host::TypesIn(const DomainRow& row, const Subject& subject, std::size_t levels) {
  return RunningOf(row).domain->TypesIn(subject, levels);
}

std::vector<FoundKind> Host::FindKinds(const std::string& text, IdsOf ids_of) const {
  std::vector<FoundKind> found;
  for (const Running& running : domains_) {
    const std::vector<Kind>& kinds = running.domain->Kinds();
    for (const Kind& kind : kinds) {
      if (!IsKindCalled(text, running.row->name, kind.name)) continue;
      const std::optional<IdCount> ids = ids_of == nullptr ? IdCount{} : ids_of(kind);
      if (ids) found.push_back({running.row, &kind, *ids, running.has_sources, &kinds});
    }
  }
  std::stable_partition(found.begin(), found.end(),
                        [](const FoundKind& kind) { return kind.has_sources; });
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

std::optional<Outline> Host::OutlineOf(Loaded& loaded, std::vector<LoadReport>& failures) {
  if (use_ == HostUse::kOutlines) return std::move(loaded.outline);
  const auto alone = loaded.row->make();
  LoadReport report = LoadInto(*alone, *loaded.row, loaded.source, table_);
  const bool is_same =
      report.IsLoaded() && alone->FingerprintOf(loaded.source.id) == FingerprintOf(loaded);
  if (is_same) return alone->MakeOutline();
  // A reload would not help: it keeps the old data, of which no file is left to read.
  const char* const text = report.IsLoaded()
                               ? "left out, since it has changed since it was loaded; reload it"
                               : "left out, since it has changed and fails to load; list and get "
                                 "still show the old data";
  report.problems = {{{"", text, {}}}};
  failures.push_back(std::move(report));
  return std::nullopt;
}

std::vector<SourceOutline> Host::Outlines(std::vector<LoadReport>& failures,
                                          const Watcher& watcher) {
  std::vector<SourceOutline> outlines;
  const std::vector<Loaded*> sources = MatchingSources(std::nullopt);
  for (std::size_t i = 0; i < sources.size() && !IsInterrupted(); ++i) {
    Loaded& loaded = *sources[i];
    watcher(i + 1, sources.size(), ShownName(loaded.source));
    if (auto outline = OutlineOf(loaded, failures)) {
      outlines.push_back({loaded.source, loaded.row, std::move(*outline)});
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

std::optional<UsageAnswer> Host::Usage(const Names& words) const {
  for (const Running& running : domains_) {
    if (!running.has_sources) continue;
    if (auto page = running.domain->Usage(words)) return UsageAnswer{running.row, *page};
  }
  return std::nullopt;
}

Names Host::UsageNames() const {
  Names names;
  for (const Running& running : domains_) {
    const Names known = running.domain->UsageNames();
    names.insert(names.end(), known.begin(), known.end());
  }
  return names;
}

}  // namespace Zelk::Tool
