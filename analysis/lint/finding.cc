#include "analysis/lint/finding.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "analysis/fingerprint.h"
#include "analysis/near.h"

namespace Zelk::Analysis::Lint {
namespace {

/// About how long the path of the place is.
std::size_t PathSize(const Workspace& workspace, const Place& place) {
  const Model& model = workspace.ModelOf(place.domain);
  std::size_t size = 0;
  for (ElementId id = place.element; id != kNoElement; id = model[id].parent) {
    size += model[id].path.size() + model[id].name.size();
  }
  return size;
}

auto Order(const Finding& finding) {
  return std::tuple(finding.file, finding.place.offset, std::string_view(finding.rule->id),
                    std::string_view(finding.remark.subject));
}

}  // namespace

void Findings::Add(const Place& place, Remark remark) {
  const auto& chosen = workspace_.GetSettings().severities;
  const auto choice = chosen.empty() ? chosen.end() : chosen.find(rule_->id);
  const Severity severity =
      choice == chosen.end() ? remark.severity.value_or(rule_->severity) : choice->second;
  if (++found_[rule_] > kMost || text_left_ == 0) {
    ++unlisted_.at(static_cast<std::size_t>(severity));
    return;
  }
  // Names in it may be as long as files.
  remark.message = Shortened(remark.message, 1000);
  const std::size_t size =
      PathSize(workspace_, place) + remark.message.size() + remark.subject.size();
  text_left_ -= std::min(size, text_left_);
  const std::uint32_t file = workspace_.FileOf(place.domain, place.source);
  all_.push_back({rule_, severity, file, place, std::move(remark)});
}

std::string Findings::Hint(std::string_view wanted, const std::vector<std::string>& known) {
  // Comparing long names takes longer.
  const std::size_t work = known.size() * (1 + wanted.size() / 64);
  if (work > comparisons_left_) return "";
  comparisons_left_ -= work;
  std::string hint;
  for (const std::string& name : NearNames(std::string(wanted), known)) {
    hint += (hint.empty() ? "did you mean '" : " or '") + name + "'";
  }
  return hint.empty() ? hint : hint + "?";
}

void Findings::SetFingerprints() {
  std::unordered_map<std::uint64_t, std::size_t> times;
  for (Finding& finding : all_) {
    std::string identity = finding.rule->id;
    (identity += '\0') += PathOf(workspace_, finding.place);
    (identity += '\0') += finding.remark.subject;
    const std::uint64_t digest = FingerprintOf(identity);
    const std::size_t n = ++times[digest];
    finding.fingerprint = n == 1 ? digest : FingerprintOf(identity + '\0' + std::to_string(n));
  }
}

std::vector<Finding> Findings::Take() {
  std::stable_sort(all_.begin(), all_.end(), [](const Finding& left, const Finding& right) {
    return Order(left) < Order(right);
  });
  SetFingerprints();
  return std::move(all_);
}

}  // namespace Zelk::Analysis::Lint
