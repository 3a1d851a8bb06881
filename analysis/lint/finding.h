#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/accepted.h"
#include "analysis/lint/rule.h"
#include "analysis/lint/workspace.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Lint {

/// What a rule says about a place.
struct Remark {
  /// One sentence without a full stop at its end, such as "the type 'c.Spce' is not loaded".
  std::string message;

  /// The other name that it is about, such as a missing type or an ignored key; or empty. With rule
  /// and element it identifies the finding.
  std::string subject = {};

  /// What may help, such as "did you mean 'c.Spec'?"; or empty.
  std::string hint = {};

  /// Unless it is the rule's.
  std::optional<Severity> severity = std::nullopt;
};

enum class SuppressedBy : std::uint8_t {
  kNothing,
  /// By "$lint" in its file.
  kFile,
  kConfiguration,
  kBaseline,
};

struct Finding {
  const Rule* rule;
  Severity severity;
  /// The position in the files of the workspace.
  std::uint32_t file;
  Place place;
  Remark remark;
  /// Stays the same if files are re-indented, reordered, moved or split.
  std::uint64_t fingerprint = 0;
  SuppressedBy suppressed_by = SuppressedBy::kNothing;
  /// The entry of the baseline that suppresses it, or did until it ended; or null.
  const Accepted* accepted = nullptr;
};

/// Takes what rules find.
class Findings {
 public:
  explicit Findings(const Workspace& workspace) : workspace_(workspace) {}

  void Add(const Place& place, Remark remark);

  /// "did you mean 'A' or 'B'?" if the author of `wanted` may have meant one of the names, else
  /// empty. Searching takes time, so after many names it returns nothing any more.
  std::string Hint(std::string_view wanted, const std::vector<std::string>& known);

  /// Whether Hint() still compares that many names.
  bool MayHint(std::size_t names) const { return names <= comparisons_left_; }

  /// What follows is found by that rule.
  void Begin(const Rule& rule) { rule_ = &rule; }

  /// In the order in which they were found, without fingerprints.
  std::vector<Finding>& All() { return all_; }

  /// All findings, in the order of files and places, with their fingerprints.
  std::vector<Finding> Take();

  /// How many there are of each severity that Take() does not return. A rule may find something at
  /// every value of a large file, so only the first kMost findings of each are kept.
  /// Names may be as long as files, so there are fewer if their texts are too long.
  const std::array<std::size_t, 3>& Unlisted() const { return unlisted_; }

  static constexpr std::size_t kMost = 100000;

 private:
  void SetFingerprints();

  const Workspace& workspace_;
  const Rule* rule_ = nullptr;
  std::vector<Finding> all_;
  std::unordered_map<const Rule*, std::size_t> found_;
  std::array<std::size_t, 3> unlisted_{};
  /// How many more bytes the findings may have.
  std::size_t text_left_ = 64000000;
  /// How many more names may be compared for hints.
  std::size_t comparisons_left_ = 100000;
};

}  // namespace Zelk::Analysis::Lint
