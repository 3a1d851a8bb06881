#include "analysis/diff/printed.h"

#include <unordered_set>

#include "analysis/call.h"
#include "analysis/results.h"

namespace Zelk::Analysis::Diff {
namespace {

/// What the outputs of a command list.
struct Listed {
  std::unordered_set<ElementId> structures;
  std::unordered_set<ElementId> fields;
};

Listed ListedBy(const Workspace& version, ElementId command) {
  const Model& cli = version.ModelOf(Domain::kCli);
  const Model& metamodel = version.ModelOf(Domain::kMetamodel);
  Listed listed;
  for (const ElementId output : cli.Children(command)) {
    if (cli[output].kind != ElementKind::kOutput) continue;
    for (const ElementId field : cli.Children(output)) {
      for (const Reference& reference : version.GetReferences().From({Domain::kCli, field})) {
        const ElementId target = reference.target.element;
        if (target == kNoElement) continue;
        listed.fields.insert(target);
        listed.structures.insert(metamodel[target].owner);
      }
    }
  }
  return listed;
}

}  // namespace

PrintedWhole::PrintedWhole(const Workspace& version) {
  const Model& cli = version.ModelOf(Domain::kCli);
  const Model& metamodel = version.ModelOf(Domain::kMetamodel);
  Results results(version);
  for (const Call& call : CallsOf(version)) {
    if (call.operation == kNoElement || cli[call.command].fate != Fate::kFound) continue;
    const Listed listed = ListedBy(version, call.command);
    const auto is_whole = [&](ElementId structure) {
      return listed.structures.count(structure) == 0;
    };
    results.Read(call.operation, [&](ElementId field) {
      return is_whole(metamodel[field].owner) || listed.fields.count(field) != 0;
    });
    for (const ElementId definition : results.Found()) {
      if (is_whole(definition)) all_.emplace_back(definition, call.command);
    }
  }
  is_exhausted_ = results.IsExhausted();
  std::sort(all_.begin(), all_.end());
}

bool PrintedWhole::Has(ElementId structure, ElementId command) const {
  return std::binary_search(all_.begin(), all_.end(), std::pair(structure, command));
}

}  // namespace Zelk::Analysis::Diff
