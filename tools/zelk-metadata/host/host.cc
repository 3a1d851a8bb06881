#include "host/host.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <iterator>

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

Host::Host(const DomainTable& table) : table_(table) {
  for (const DomainRow& row : table) domains_.push_back({&row, row.make(), false});
}

Host::~Host() = default;

LoadReport Host::Load(const SourceArgument& source) {
  const DomainRow* const row = &DomainOf(source.path, table_);
  const auto running =
      std::find_if(domains_.begin(), domains_.end(),
                   [row](const Running& candidate) { return candidate.row == row; });
  LoadReport report = LoadInto(*running->domain, *row, source);
  if (!report.problems.empty()) return report;
  running->has_sources = true;
  loaded_.push_back({source, row});
  return report;
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

std::vector<SourceOutline> Host::Outlines(std::vector<LoadReport>& failures) const {
  std::vector<Loaded> sources;
  for (const DomainRow& row : table_) {
    const auto begin = static_cast<std::ptrdiff_t>(sources.size());
    std::copy_if(loaded_.begin(), loaded_.end(), std::back_inserter(sources),
                 [&row](const Loaded& loaded) { return loaded.row == &row; });
    std::sort(sources.begin() + begin, sources.end(), [](const Loaded& left, const Loaded& right) {
      return left.source.id < right.source.id;
    });
  }
  std::vector<SourceOutline> outlines;
  for (const Loaded& loaded : sources) {
    const std::unique_ptr<Domain> domain = loaded.row->make();
    LoadReport report = LoadInto(*domain, *loaded.row, loaded.source);
    if (report.problems.empty()) {
      outlines.push_back({loaded.source, loaded.row, domain->MakeOutline()});
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
