#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/settings_reader.h"

// What an earlier run found and a project accepts.

namespace Zelk::Analysis {

struct Accepted {
  /// Of the rule, or of the kind of change.
  std::string id;
  std::uint64_t fingerprint;
  std::string reason;
  /// The last day on which it holds, as YYYY-MM-DD; empty for ever.
  std::string until;
  /// The file that lists it, as the user knows it, if there may be several.
  std::string file = {};
  /// The path that it lists; not used for anything else.
  std::string element = {};
  /// See NotesOf().
  std::string notes = {};
};

/// The notes of the object, as a JSON object: its members whose keys begin with '$'.
std::string NotesOf(const Document& document, NodeId object);

/// How a file lists them: {"version": 1, LIST: [{ID: ..., "fingerprint": ...}...]}, each with an
/// optional "element", "reason" and "until".
struct AcceptedForm {
  const char* list;
  const char* id;
  /// The complaint about a file without the list.
  const char* complaint;
};

inline constexpr AcceptedForm kBaselineForm{"findings", "rule",
                                            "this is not a baseline: it has no 'findings'"};

/// What is wrong is added to `problems`.
std::vector<Accepted> ReadAccepted(const Document& document, const AcceptedForm& form,
                                   SettingsProblems& problems);

/// Whether the last day is before today.
bool HasEnded(std::string_view until, const std::string& today);

/// Records which entries are used.
class AcceptedUse {
 public:
  /// The entries must outlive this object.
  AcceptedUse(const std::vector<Accepted>& entries, std::string today);

  /// The entry with the fingerprint that has not ended, or null.
  const Accepted* Use(std::uint64_t fingerprint);

  /// The entry with the fingerprint that has ended, or null.
  const Accepted* FindEnded(std::uint64_t fingerprint) const {
    const auto entry = ended_.find(fingerprint);
    return entry == ended_.end() ? nullptr : &entries_[entry->second];
  }

  /// Calls `visit(entry, has_ended)` with each entry that accepted nothing.
  template <typename Visit>
  void ForEachUnused(const Visit& visit) const {
    for (std::size_t i = 0; i < is_used_.size(); ++i) {
      if (!is_used_[i]) visit(entries_[i], HasEnded(entries_[i].until, today_));
    }
  }

 private:
  const std::vector<Accepted>& entries_;
  const std::string today_;
  /// The positions of the entries by their fingerprints.
  std::unordered_map<std::uint64_t, std::size_t> by_fingerprint_;
  std::unordered_map<std::uint64_t, std::size_t> ended_;
  std::vector<bool> is_used_;
};

}  // namespace Zelk::Analysis
