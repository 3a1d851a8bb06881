#include "lint/report.h"

#include "host/named_place.h"
#include "host/settings_file.h"

namespace Zelk::Tool::Lint {
namespace {

constexpr char kUnused[] = "unused-suppression";

Entry EntryOf(const LoadReport& file, const Problem& problem) {
  Entry entry;
  entry.rule = problem.message.id;
  entry.severity = problem.severity;
  entry.message = problem.words.empty() ? problem.message.Text() : problem.words;
  entry.hint = problem.hint;
  entry.file = file.file;
  entry.fails = problem.severity == Severity::kError;
  if (problem.place) {
    entry.position = problem.place->position;
    entry.pointer = problem.place->pointer;
    entry.text = file.text.get();
    entry.offset = problem.place->offset;
  }
  return entry;
}

Entry EntryOf(const Analysis::Lint::Workspace& workspace, const Analysis::Lint::Finding& finding) {
  const Analysis::Document& document = DocumentOf(workspace, finding.place);
  const NamedPlace place = NamedPlaceOf(workspace, finding.place);
  Entry entry;
  entry.rule = finding.rule->id;
  entry.severity = finding.severity;
  entry.message = finding.remark.message;
  entry.hint = finding.remark.hint;
  entry.file = place.file;
  entry.position = place.position;
  entry.pointer = place.pointer;
  entry.element = PathOf(workspace, finding.place);
  entry.fingerprint = FingerprintText(finding.fingerprint);
  entry.suppressed_by = finding.suppressed_by;
  entry.accepted = finding.accepted;
  entry.text = &document;
  entry.offset = finding.place.offset;
  return entry;
}

}  // namespace

void Report::ForEach(const std::function<void(const Entry&)>& visit) const {
  for (const LoadReport& file : failed) {
    for (const Problem& problem : file.problems) visit(EntryOf(file, problem));
  }
  for (const Analysis::Lint::Finding& finding : result.findings) {
    const bool is_hidden = finding.suppressed_by != SuppressedBy::kNothing && !shows_suppressed;
    if (is_hidden) continue;
    Entry entry = EntryOf(*workspace, finding);
    entry.fails = FailsBecauseOf(finding);
    visit(entry);
  }
  for (const Analysis::Lint::Unused& unused : result.unused) {
    Entry entry;
    entry.rule = kUnused;
    entry.severity = Severity::kWarning;
    entry.message = unused.message;
    entry.file = unused.where == SuppressedBy::kBaseline ? baseline_file : configuration_file;
    visit(entry);
  }
}

bool Report::FailsBecauseOf(const Analysis::Lint::Finding& finding) const {
  // A mistake that was fixed must not fail a run.
  return finding.suppressed_by == SuppressedBy::kNothing && fail_on &&
         finding.severity <= *fail_on && finding.rule->id != std::string_view(kUnused);
}

Summary Summarize(const Report& report) {
  Summary summary;
  summary.files = report.workspace->Files().size();
  summary.failed = report.failed.size() + report.unreadable.size();
  summary.findings = report.result.unlisted;
  for (const std::size_t count : report.result.unlisted) summary.unlisted += count;
  for (const Analysis::Lint::Finding& finding : report.result.findings) {
    if (finding.suppressed_by == SuppressedBy::kNothing) {
      ++summary.findings.at(static_cast<std::size_t>(finding.severity));
    } else {
      ++summary.suppressed.at(static_cast<std::size_t>(finding.suppressed_by));
    }
    summary.is_failed = summary.is_failed || report.FailsBecauseOf(finding);
  }
  summary.findings.at(static_cast<std::size_t>(Severity::kWarning)) += report.result.unused.size();
  for (std::size_t severity = 0; severity < summary.findings.size(); ++severity) {
    const bool fails = report.fail_on && static_cast<Severity>(severity) <= *report.fail_on;
    if (fails && report.result.unlisted.at(severity) > 0) summary.is_failed = true;
  }
  for (const Analysis::Lint::SkippedRule& skipped : report.result.skipped) {
    ++summary.skipped.at(static_cast<std::size_t>(skipped.needed));
  }
  return summary;
}

}  // namespace Zelk::Tool::Lint
