#include "diff/report.h"

#include <algorithm>

#include "host/settings_file.h"

namespace Zelk::Tool::Diff {

void Compare(Report& report) {
  report.result = Analysis::Diff::Compare(*report.old_version.workspace,
                                          *report.new_version.workspace, report.assumptions);
  Analysis::AcceptedUse accepted(report.accepted, Today());
  for (const Change& change : report.result.changes) {
    const Class worst = ClassOf(change, report.audiences);
    const Analysis::Accepted* const reason = accepted.Use(change.fingerprint);
    if (worst != Class::kNotConcerned) report.entries.push_back({&change, worst, reason});
  }
  // The classes of all audiences may be others.
  std::stable_sort(report.entries.begin(), report.entries.end(),
                   [](const Entry& left, const Entry& right) {
                     const bool left_opens = OpensAccess(*left.change);
                     const bool right_opens = OpensAccess(*right.change);
                     return left_opens != right_opens ? left_opens : left.worst > right.worst;
                   });
  accepted.ForEachUnused([&](const Analysis::Accepted& entry, const char* problem) {
    report.unused.push_back("an entry for '" + entry.id + "' " + problem);
  });
}

Summary Summarize(const Report& report) {
  Summary summary;
  summary.failed = report.old_version.Failed() + report.new_version.Failed();
  for (const Entry& entry : report.entries) {
    if (entry.accepted != nullptr) {
      ++summary.accepted;
      continue;
    }
    ++summary.changes.at(static_cast<std::size_t>(entry.worst));
  }
  for (const auto& [verdicts, count] : report.result.unlisted) {
    const Class worst = ClassOf(verdicts, report.audiences);
    summary.changes.at(static_cast<std::size_t>(worst)) += count;
    summary.unlisted += count;
  }
  for (const Class worst : kShownClasses) {
    const bool fails = report.fail_on && worst >= *report.fail_on;
    if (fails && summary.Of(worst) > 0) summary.is_failed = true;
  }
  return summary;
}

const char* Bump(const Report& report) {
  Class worst = Class::kNotConcerned;
  for (const Entry& entry : report.entries) worst = std::max(worst, entry.worst);
  for (const auto& [verdicts, count] : report.result.unlisted) {
    worst = std::max(worst, ClassOf(verdicts, report.audiences));
  }
  if (worst == Class::kBreaking) return "major";
  return worst >= Class::kCompatible ? "minor" : "patch";
}

}  // namespace Zelk::Tool::Diff
