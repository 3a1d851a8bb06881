#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/diff/change.h"
#include "analysis/diff/command_reach.h"
#include "analysis/diff/ordered_parts.h"
#include "analysis/diff/reach.h"
#include "analysis/diff/renames.h"
#include "analysis/diff/shapes.h"
#include "analysis/diff/types.h"

// Compares Metamodel. What is compared of each kind of elements is in files of their own.

namespace Zelk::Analysis::Diff {

/// Both versions of Metamodel, and what is known of them.
struct Metamodel {
  explicit Metamodel(Changes& its_changes)
      : changes(its_changes),
        models(changes.Models(Domain::kMetamodel)),
        reach(changes.Old(), changes.New()),
        commands(changes.Old(), changes.New()),
        old_shapes(models.old_model, Shapes::Extent::kParts),
        new_shapes(models.new_model, Shapes::Extent::kParts),
        renames(models, old_shapes, new_shapes) {}

  Metamodel(const Metamodel&) = delete;
  Metamodel& operator=(const Metamodel&) = delete;
  ~Metamodel() = default;

  void Add(std::string_view id, Pair pair, Details details) {
    changes.Add(id, Domain::kMetamodel, pair, std::move(details));
  }

  /// One was added or removed, with all that is in it. `kind` is what ids begin with.
  void AddWhole(const std::string& kind, Pair pair, Details details = {});

  /// "the parameter 'c.p.s.a.x'".
  std::string CalledIn(Pair pair) const;

  Changes& changes;
  ModelPair models;
  Reach reach;
  CommandReach commands;
  Shapes old_shapes;
  Shapes new_shapes;
  Renames renames;
  /// The names of the structures that are reported as models of resources, or as none any more.
  std::set<std::string_view> changed_models;
  /// The new names of resources that are reported under another name, by the old names.
  std::map<std::string_view, std::string_view> renamed_resources;
};

/// Whether parameters and fields are sent without their names.
bool IsPositional(const Metamodel& metamodel);

/// What matters of the position of a parameter or a field; for fingerprints.
std::string PositionOf(const Metamodel& metamodel, const OrderedParts& parts, Pair pair);

// All that follow compare elements that both versions have.

/// Documentation and annotations.
void CompareTexts(Metamodel& metamodel, Pair pair);

/// The type of a parameter, a field or a result. `kind` is what ids begin with.
void CompareTypesOf(Metamodel& metamodel, const std::string& kind, Pair pair, Direction direction);

// What elements are made of.
void CompareOperation(Metamodel& metamodel, Pair operation);
void CompareStructure(Metamodel& metamodel, Pair structure);
void CompareEnumeration(Metamodel& metamodel, Pair enumeration);
void CompareConstants(Metamodel& metamodel, Pair owner);

void CompareResources(Metamodel& metamodel);

}  // namespace Zelk::Analysis::Diff
