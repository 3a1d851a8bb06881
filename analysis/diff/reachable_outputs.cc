#include <string>

#include "analysis/call.h"
#include "analysis/diff/cli_comparers.h"
#include "analysis/diff/reading.h"
#include "analysis/diff/verdicts.h"
#include "analysis/results.h"

// Structures that commands list fields of, and that a change of Metamodel takes out of the result
// or puts into it.

namespace Zelk::Analysis::Diff {
namespace {

/// What a command calls, or what an output lists the fields of; kNoElement if it is not loaded.
ElementId TargetOf(const Workspace& version, ElementId from, ElementKind wanted) {
  ElementId target = kNoElement;
  for (const Reference& reference : version.GetReferences().From({Domain::kCli, from})) {
    if (reference.wanted == wanted) target = reference.target.element;
  }
  return target;
}

class ReachComparer {
 public:
  explicit ReachComparer(Changes& changes)
      : changes_(changes),
        models_(changes.Models(Domain::kCli)),
        before_(changes.Old()),
        after_(changes.New()) {}

  void Compare() {
    for (const Pair& command : LookupPairs(models_, ElementKind::kCommand)) {
      const bool is_same_call =
          command.IsMatched() &&
          CallOf(models_.old_model, command.old_id) == CallOf(models_.new_model, command.new_id);
      if (is_same_call) CompareOutputsOf(command);
    }
  }

 private:
  /// The element in both versions, as far as they have it.
  Pair Targets(Pair from, ElementKind wanted) const {
    return {TargetOf(changes_.Old(), from.old_id, wanted),
            TargetOf(changes_.New(), from.new_id, wanted)};
  }

  void CompareOutputsOf(Pair command) {
    const Pair operation = Targets(command, ElementKind::kOperation);
    if (!operation.IsMatched()) return;
    for (const Pair& output : PartPairs(models_, command, ElementKind::kOutput)) {
      if (!output.IsMatched()) continue;
      const Pair structure = Targets(output, ElementKind::kStructure);
      if (!structure.IsMatched()) continue;
      before_.Read(operation.old_id);
      after_.Read(operation.new_id);
      const bool was_reached = before_.MayHave(structure.old_id);
      const bool is_reached = after_.MayHave(structure.new_id);
      // A result that comes or goes as a whole is reported as that.
      const bool is_whole = before_.IsVoid() || after_.IsVoid();
      if (was_reached != is_reached && !is_whole) Add(command, output, is_reached);
    }
  }

  void Add(Pair command, Pair output, bool is_reached) {
    const char* const id = is_reached ? "output-became-reachable" : "output-became-unreachable";
    Details details;
    if (!changes_.IsFull()) {
      details.message = "the result of " + Called(models_.old_model, command.old_id) +
                        (is_reached ? " now has '" : " no longer has '") +
                        Shortened(models_.old_model[output.old_id].name) + "', which it shows";
    }
    if (is_reached) {
      const Reading& reading = ReadingOf(FormatterOf(models_.new_model, command.new_id));
      details.verdicts = Verdicts{kN, kN, reading.field_added, kN, kN};
    }
    changes_.Add(id, Domain::kCli, output, std::move(details));
  }

  Changes& changes_;
  ModelPair models_;
  Results before_;
  Results after_;
};

}  // namespace

void CompareReachableOutputs(Changes& changes) {
  ReachComparer(changes).Compare();
}

}  // namespace Zelk::Analysis::Diff
