#include <fmt/format.h>
#include <fmt/ranges.h>
#include <ostream>

#include "check/excerpt.h"
#include "lint/report.h"
#include "render/layout.h"
#include "render/utf8.h"

namespace Zelk::Tool::Lint {
namespace {

using Render::Terminal;

std::string Counted(std::size_t count, const std::string& word) {
  return fmt::format("{} {}{}", count, word, count == 1 ? "" : "s");
}

std::string FoundText(const Summary& summary) {
  std::vector<std::string> parts;
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    const std::size_t count = summary.findings.at(static_cast<std::size_t>(severity));
    if (count > 0) parts.push_back(Counted(count, Analysis::Lint::Word(severity)));
  }
  return parts.empty() ? "nothing found" : fmt::format("{}", fmt::join(parts, ", "));
}

std::string SuppressedText(const Summary& summary) {
  const char* const sources[] = {"$lint", "the configuration", "the baseline"};
  std::vector<std::string> parts;
  std::size_t all = 0;
  for (std::size_t by = 1; by < summary.suppressed.size(); ++by) {
    const std::size_t count = summary.suppressed.at(by);
    if (count > 0) parts.push_back(fmt::format("{} by {}", count, sources[by - 1]));
    all += count;
  }
  return all == 0 ? "" : fmt::format("{} suppressed ({})", all, fmt::join(parts, ", "));
}

std::string Verdict(const Report& report, const Summary& summary) {
  std::vector<std::string> parts;
  const auto add = [&](std::size_t count, const char* one, const char* many) {
    if (count > 0) parts.push_back(count == 1 ? one : fmt::format("{} {}", count, many));
  };
  add(report.failed.size(), "a file does not load", "files do not load");
  add(report.unreadable.size(), "a source cannot be read", "sources cannot be read");
  if (!parts.empty()) return fmt::format("failed: {}", fmt::join(parts, ", "));
  if (!summary.is_failed) return "passed";
  return fmt::format("failed: found something at or above '{}'",
                     Analysis::Lint::Word(*report.fail_on));
}

void WriteLines(std::ostream& out, const std::string& text, const Terminal& terminal) {
  constexpr std::size_t kIndent = 4;
  for (const std::string& line :
       Render::Wrapped(Render::ForTerminal(text), terminal.width, kIndent)) {
    out << line << '\n';
  }
}

void WriteSummary(std::ostream& out, const Report& report, const Terminal& terminal) {
  const auto write = [&](const std::string& line) { WriteLines(out, line, terminal); };
  const Summary summary = Summarize(report);
  write(Counted(summary.files, "file") + ": " + FoundText(summary));
  if (summary.unlisted > 0) write(Counted(summary.unlisted, "finding") + " more not listed");
  const std::string suppressed = SuppressedText(summary);
  if (!suppressed.empty()) write(suppressed);
  for (std::size_t domain = 0; domain < summary.skipped.size(); ++domain) {
    const std::size_t count = summary.skipped.at(domain);
    if (count == 0) continue;
    write(fmt::format("{} {} a file of the domain {}", Counted(count, "rule"),
                      count == 1 ? "needs" : "need",
                      Analysis::FormatOf(static_cast<Analysis::Domain>(domain)).root_key));
  }
  write(Verdict(report, summary));
}

void WriteEntry(std::ostream& out, const Entry& entry, const Terminal& terminal) {
  std::string head = entry.file;
  if (entry.position) head += fmt::format(":{}:{}", entry.position->line, entry.position->column);
  const bool is_suppressed = entry.suppressed_by != SuppressedBy::kNothing;
  const std::string rule = entry.rule.empty() ? "" : " [" + entry.rule + "]";
  WriteLines(out,
             fmt::format("{}: {}{}: {}{}", head, is_suppressed ? "suppressed " : "",
                         Analysis::Lint::Word(entry.severity), entry.message, rule),
             terminal);
  if (entry.text != nullptr) {
    Check::WriteExcerpt(out, *entry.text, entry.offset, terminal.width);
  }
  if (!entry.hint.empty()) WriteLines(out, "  " + entry.hint, terminal);
}

}  // namespace

void WriteText(std::ostream& out, const Report& report, const Terminal& terminal) {
  report.ForEach([&](const Entry& entry) { WriteEntry(out, entry, terminal); });
  WriteSummary(out, report, terminal);
}

}  // namespace Zelk::Tool::Lint
