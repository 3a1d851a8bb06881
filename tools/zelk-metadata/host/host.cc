#include "host/host.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <fmt/ranges.h>

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
  LoadReport report{source.path, row.name, {}};
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
  running->has_sources = running->has_sources || report.problems.empty();
  return report;
}

std::vector<const Kind*> Host::FindKinds(const std::string& text) const {
  std::vector<const Kind*> found;
  for (const bool has_sources : {true, false}) {
    for (const Running& running : domains_) {
      if (running.has_sources != has_sources) continue;
      for (const Kind& kind : running.domain->Kinds()) {
        if (Means(text, running.row->name, kind)) found.push_back(&kind);
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

LoadReport LoadAlone(const std::string& path, const DomainTable& table) {
  const DomainRow& row = DomainOf(path, table);
  return LoadInto(*row.make(), row, {DefaultSourceId(path), path});
}

}  // namespace Zelk::Tool
