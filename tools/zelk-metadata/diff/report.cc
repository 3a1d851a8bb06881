#include "diff/report.h"

#include <algorithm>

#include "host/settings_file.h"

namespace Zelk::Tool::Diff {
namespace {

/// The file that the change repairs or removes, which does not load in the old version; or null.
const Analysis::Diff::LostFile* RepairedBy(const Report& report, const Change& change) {
  const auto file = std::find_if(report.lost.begin(), report.lost.end(), [&](const auto& lost) {
    return !lost.loads_in_old && PathOf(lost) == change.element;
  });
  return file == report.lost.end() ? nullptr : &*file;
}

/// The old version cannot be changed any more, so it is enough to accept the repair.
void ForgetFailure(Report& report, const Change& change) {
  const Analysis::Diff::LostFile* const file = RepairedBy(report, change);
  if (file == nullptr) return;
  auto& failed = report.old_version.failed;
  const auto is_it = [&](const FailedFile& other) { return other.id == file->id; };
  failed.erase(std::remove_if(failed.begin(), failed.end(), is_it), failed.end());
}

}  // namespace

void Compare(Report& report) {
  report.result =
      Analysis::Diff::Compare(*report.old_version.workspace, *report.new_version.workspace,
                              report.assumptions, report.lost);
  Analysis::AcceptedUse accepted(report.accepted, Today());
  for (const Change& change : report.result.changes) {
    const Class worst = ClassOf(change, report.audiences);
    const Analysis::Accepted* const reason = accepted.Use(change.fingerprint);
    const Analysis::Accepted* const ended = accepted.FindEnded(change.fingerprint);
    const bool is_shown = worst != Class::kNotConcerned;
    if (!is_shown && reason == nullptr && ended == nullptr) continue;
    (is_shown ? report.entries : report.others).push_back({&change, worst, reason, ended});
  }
  // The classes of all audiences may be others.
  std::stable_sort(report.entries.begin(), report.entries.end(),
                   [](const Entry& left, const Entry& right) {
                     const bool left_opens = OpensAccess(*left.change);
                     const bool right_opens = OpensAccess(*right.change);
                     return left_opens != right_opens ? left_opens : left.worst > right.worst;
                   });
  for (const Entry& entry : report.entries) {
    if (entry.accepted != nullptr) ForgetFailure(report, *entry.change);
  }
  accepted.ForEachUnused([&](const Analysis::Accepted& entry, bool has_ended) {
    report.unused.push_back({entry.file, "an entry for '" + entry.id + "' " +
                                             (has_ended ? "has ended" : "accepts nothing")});
  });
}

std::string WhyNotComparable(const Report& report) {
  const Analysis::DomainSet old_domains = report.old_version.workspace->Loaded();
  const Analysis::DomainSet new_domains = report.new_version.workspace->Loaded();
  if ((old_domains & new_domains) == 0) return "OLD and NEW have no domain in common";
  // Programs that read the metadata read all of it.
  Analysis::Diff::AudienceSet compared = SetOf(Audience::kMetadata);
  for (const Concern& concern : kConcerns) {
    const bool is_loaded = ((old_domains | new_domains) & SetOf(concern.domain)) != 0;
    if (is_loaded) compared |= concern.audiences;
  }
  if ((report.audiences & compared) != 0) return "";
  std::string audiences;
  for (const Audience audience : kAudiences) {
    if ((report.audiences & SetOf(audience)) == 0) continue;
    audiences += (audiences.empty() ? "" : ", ") + std::string(Word(audience));
  }
  return "OLD and NEW have no file that concerns " + audiences;
}

bool IsComplete(const Report& report) {
  const bool has_repairs_only =
      std::none_of(report.lost.begin(), report.lost.end(),
                   [](const Analysis::Diff::LostFile& file) { return file.loads_in_old; });
  return report.old_version.unreadable == 0 && report.new_version.Failed() == 0 && has_repairs_only;
}

bool FailsBecauseOf(const Report& report, const Entry& entry) {
  const bool is_bad = report.fail_on && entry.worst >= *report.fail_on;
  return is_bad || RepairedBy(report, *entry.change) != nullptr;
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

std::string Bump(const Report& report) {
  if (report.old_version.Failed() + report.new_version.Failed() > 0) return "";
  Class worst = Class::kNotConcerned;
  for (const Entry& entry : report.entries) worst = std::max(worst, entry.worst);
  for (const auto& [verdicts, count] : report.result.unlisted) {
    worst = std::max(worst, ClassOf(verdicts, report.audiences));
  }
  if (worst == Class::kBreaking) return "major";
  return worst >= Class::kCompatible ? "minor" : "patch";
}

}  // namespace Zelk::Tool::Diff
