#include "diff/words.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <utility>

#include "analysis/diff/configuration.h"
#include "host/named_place.h"

namespace Zelk::Tool::Diff {

namespace {

/// Whether a change concerns anybody, chosen or not.
bool HasChangedAnswer(const Report& report) {
  const auto& changes = report.result.changes;
  return !report.result.unlisted.empty() ||
         std::any_of(changes.begin(), changes.end(),
                     [](const Change& change) { return ClassOf(change) != Class::kNotConcerned; });
}

std::string FoundText(const Report& report, const Summary& summary) {
  const bool has_files = !report.old_version.workspace->Files().empty() ||
                         !report.new_version.workspace->Files().empty();
  if (!has_files && summary.accepted == 0) return "nothing was compared";
  std::vector<std::string> parts;
  std::size_t all = 0;
  for (const Class worst : kShownClasses) {
    const std::size_t count = summary.Of(worst);
    if (count > 0) parts.push_back(fmt::format("{} {}", count, Word(worst)));
    all += count;
  }
  if (all == 0) return summary.accepted > 0 ? "no other changes" : "no changes";
  return fmt::format("{}: {}", Counted(all, "change"), fmt::join(parts, ", "));
}

/// "a file does not load", "2 files do not load"; added to the parts if there are any.
void AddCount(std::vector<std::string>& parts, std::size_t count, const char* one,
              const char* many) {
  if (count > 0) parts.push_back(count == 1 ? one : fmt::format("{} {}", count, many));
}

std::string FailedText(const Report& report) {
  std::vector<std::string> parts;
  std::size_t failed = 0;
  std::size_t partial = 0;
  std::size_t unreadable = 0;
  for (const Side* side : {&report.old_version, &report.new_version}) {
    for (const FailedFile& file : side->failed) ++(file.part.empty() ? failed : partial);
    if (side->is_unreadable) {
      parts.emplace_back(side == &report.old_version ? "OLD cannot be read" : "NEW cannot be read");
    } else {
      unreadable += side->unreadable;
    }
  }
  AddCount(parts, failed, "a file does not load", "files do not load");
  AddCount(parts, partial, "a part of a file does not load", "parts of files do not load");
  AddCount(parts, unreadable, "a file cannot be read", "files cannot be read");
  return fmt::format("failed: {}", fmt::join(parts, ", "));
}

/// What of the chosen audiences' concern no file has.
std::vector<std::string> MissingTexts(const Report& report) {
  std::vector<std::string> texts;
  const Analysis::DomainSet loaded =
      report.old_version.workspace->Loaded() | report.new_version.workspace->Loaded();
  if (loaded == 0 || report.audiences == Analysis::Diff::kAllAudiences) return texts;
  for (const Concern& concern : kConcerns) {
    const bool is_chosen = (report.audiences & concern.audiences) != 0;
    if (is_chosen && (loaded & SetOf(concern.domain)) == 0) texts.emplace_back(concern.missing);
  }
  return texts;
}

/// "FILE:LINE:COLUMN".
std::string PlaceText(const Side& side, const Analysis::Place& place) {
  const NamedPlace named = NamedPlaceOf(*side.workspace, place);
  return fmt::format("{}:{}:{}", named.file, named.position.line, named.position.column);
}

}  // namespace

std::string Counted(std::size_t count, const std::string& word) {
  return fmt::format("{} {}{}", count, word, count == 1 ? "" : "s");
}

std::vector<std::string> AssumptionTexts(const Analysis::Diff::Assumptions& assumptions) {
  std::vector<std::string> texts;
  for (const auto& choice : Analysis::Diff::Choices()) {
    texts.push_back(fmt::format("{}: {}", choice.key, choice.WordOf(assumptions)));
  }
  return texts;
}

const char* HeadingOf(Class worst) {
  constexpr std::array<const char*, kClasses> kHeadings{"", "Documentation", "Compatible",
                                                        "Dangerous", "Breaking"};
  return kHeadings.at(static_cast<std::size_t>(worst));
}

const char* GroupOf(const Entry& entry) {
  return OpensAccess(*entry.change) ? "Access is opened" : HeadingOf(entry.worst);
}

std::string ConcernedText(const Entry& entry, Analysis::Diff::AudienceSet audiences) {
  std::vector<std::string> texts;
  for (const Audience audience : kAudiences) {
    const Class verdict = entry.change->verdicts.at(static_cast<std::size_t>(audience));
    const bool is_shown = (audiences & SetOf(audience)) != 0 && verdict != Class::kNotConcerned;
    if (!is_shown) continue;
    const bool is_worst = verdict == entry.worst;
    texts.push_back(is_worst ? Word(audience)
                             : fmt::format("{} ({})", Word(audience), Word(verdict)));
  }
  return fmt::format("{}", fmt::join(texts, ", "));
}

std::string ValueText(const std::string& value, const Side& side,
                      const std::optional<Analysis::Place>& place) {
  std::string text = Analysis::Shortened(value);
  if (!place) return text;
  const std::string where = PlaceText(side, *place);
  return text.empty() ? where : fmt::format("{} ({})", text, where);
}

std::string ReasonText(const Analysis::Accepted& accepted) {
  std::vector<std::string> parts;
  if (!accepted.reason.empty()) parts.push_back(accepted.reason);
  if (!accepted.until.empty()) parts.push_back("until " + accepted.until);
  return parts.empty() ? "" : fmt::format(" ({})", fmt::join(parts, ", "));
}

std::vector<std::string> SummaryLines(const Report& report) {
  const Summary summary = Summarize(report);
  std::vector<std::string> lines{FoundText(report, summary)};
  if (summary.unlisted > 0) {
    lines.push_back(fmt::format("{} of them not listed", summary.unlisted));
  }
  if (summary.accepted > 0) {
    lines.push_back(
        fmt::format("{} accepted by {}", summary.accepted, fmt::join(report.accepted_files, ", ")));
  }
  if (report.result.fingerprints_differ && !HasChangedAnswer(report)) {
    lines.emplace_back("Only the fingerprint changes.");
  }
  for (std::string& text : MissingTexts(report)) lines.push_back(std::move(text));
  if (summary.failed > 0) {
    lines.push_back(FailedText(report));
  } else if (summary.is_failed) {
    lines.push_back(
        report.fail_on == Class::kDocumentation
            ? "failed: found a change"
            : fmt::format("failed: found a change at or above '{}'", Word(*report.fail_on)));
  } else {
    lines.emplace_back("passed");
  }
  return lines;
}

}  // namespace Zelk::Tool::Diff
