#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "analysis/diff/assumptions.h"
#include "analysis/diff/kind.h"
#include "analysis/diff/pairs.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {

/// Several commands.
struct CommandNames {
  /// Such as "the command 'acme.start'", or "the commands 'a', 'b' and others"; or empty.
  std::string text = {};
  /// The same for the same commands, shown or not.
  std::uint64_t digest = 0;
};

/// What comparers say about a change.
struct Details {
  /// One sentence without a full stop at its end.
  std::string message;
  /// What callers saw and see, such as types; or empty.
  std::string old_value = {};
  std::string new_value = {};
  Direction direction = Direction::kNone;
  /// Unless they are those of the kind for the direction.
  std::optional<Verdicts> verdicts = std::nullopt;
  /// The assumption by which the verdicts were decided, such as "parameters: named"; or empty.
  std::string assumption = {};
  /// What worked in the old version and does not in the new one; or empty.
  std::string witness = {};
  /// The audiences for which it stays breaking even if what is removed was deprecated.
  AudienceSet others_broken = 0;
  /// Commands that are the same and fail now, or print something else.
  CommandNames breaks = {};
  /// What may help, such as "possibly renamed to 'c.p.stop'"; or empty.
  std::string hint = {};
  /// What is to be looked at, unless it is where the element has its name.
  NodeId old_node = kNoNode;
  NodeId new_node = kNoNode;
  /// The path of what is not an element, such as "metamodel/resource:c.id"; or empty.
  std::string element = {};
  /// What else tells the change from others of the same element; not shown.
  std::string identity = {};
  /// Whether callers without a scheme may gain access by it.
  bool opens_access = false;
};

struct Change {
  const Kind* kind;
  Verdicts verdicts;
  /// The path in the old version; of what is added, in the new version.
  std::string element;
  /// Where it was and is; empty for a version that does not have it.
  std::optional<Place> old_place;
  std::optional<Place> new_place;
  Details details;
  /// Of the kind, the element, both values, what came or went, the verdicts, the broken commands
  /// and the identity: the same for the same change in other files, but another one if it is worse.
  std::uint64_t fingerprint;
};

/// The worst verdict for the audiences.
Class ClassOf(const Verdicts& verdicts, AudienceSet audiences);

inline Class ClassOf(const Change& change, AudienceSet audiences = kAllAudiences) {
  return ClassOf(change.verdicts, audiences);
}

/// Such changes are shown first.
inline bool OpensAccess(const Change& change) {
  return change.details.opens_access;
}

/// How many changes have the same verdicts.
using VerdictCounts = std::map<Verdicts, std::size_t>;

/// Takes the changes that comparers find.
class Changes {
 public:
  Changes(const Workspace& old_version, const Workspace& new_version,
          const Assumptions& assumptions)
      : old_version_(old_version), new_version_(new_version), assumptions_(assumptions) {}

  const Workspace& Old() const { return old_version_; }

  const Workspace& New() const { return new_version_; }

  const Assumptions& GetAssumptions() const { return assumptions_; }

  ModelPair Models(Domain domain) const {
    return {old_version_.ModelOf(domain), new_version_.ModelOf(domain)};
  }

  /// `id` is that of a kind. `pair` has no elements if the change is about a domain as a whole. A
  /// removal of what was deprecated is at most dangerous for those who use it.
  void Add(std::string_view id, Domain domain, Pair pair, Details details);

  /// Whether further changes are only counted, so that their texts are not needed.
  bool IsFull() const { return all_.size() >= kMost || text_left_ == 0; }

  /// How many were added.
  std::size_t Count() const { return count_; }

  /// All of them: opened access first, then by class with the worst first, by area and by element.
  std::list<Change> Take();

  /// How many there are that Take() does not return. Files may differ at every value, and names
  /// may be as long as files.
  const VerdictCounts& Unlisted() const { return unlisted_; }

  static constexpr std::size_t kMost = 100000;

 private:
  /// Whether an element of Metamodel, or what it is in, had an annotation that says so.
  bool WasDeprecated(ElementId id);

  const Workspace& old_version_;
  const Workspace& new_version_;
  const Assumptions& assumptions_;
  /// A list, since changes are large and many: it grows and is sorted in place.
  std::list<Change> all_;
  std::size_t count_ = 0;
  /// Whether elements of Metamodel have such an annotation themselves, if that is known.
  std::unordered_map<ElementId, bool> deprecated_;
  VerdictCounts unlisted_;
  /// How many more bytes the changes may have.
  std::size_t text_left_ = 32000000;
};

}  // namespace Zelk::Analysis::Diff
