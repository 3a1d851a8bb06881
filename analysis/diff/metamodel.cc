#include <array>
#include <string>

#include "analysis/diff/comparers.h"

namespace Zelk::Analysis::Diff {
namespace {

/// The kinds that lookups return.
constexpr std::array<ElementKind, 5> kDefinitions{ElementKind::kComponent, ElementKind::kPackage,
                                                  ElementKind::kService, ElementKind::kStructure,
                                                  ElementKind::kEnumeration};

class MetamodelComparer {
 public:
  explicit MetamodelComparer(Changes& changes)
      : changes_(changes), models_(changes.Models(Domain::kMetamodel)) {}

  void Compare() {
    for (const ElementKind kind : kDefinitions) {
      for (const Pair& pair : LookupPairs(models_, kind)) {
        if (pair.IsMatched()) {
          if (!IsSameText(models_, pair)) CompareParts(pair, kind);
        } else if (!IsWithinChange(models_, pair)) {
          AddWhole(pair);
        }
      }
    }
  }

 private:
  void AddWhole(Pair pair) {
    const Model& model = pair.IsAdded() ? models_.new_model : models_.old_model;
    const ElementId id = pair.IsAdded() ? pair.new_id : pair.old_id;
    const std::string kind = Word(model[id].kind);
    changes_.Add(kind + (pair.IsAdded() ? "-added" : "-removed"), Domain::kMetamodel, pair,
                 {Called(model, id) + ContentsOf(models_, pair) +
                  (pair.IsAdded() ? " was added" : " was removed")});
  }

  void CompareParts(Pair pair, ElementKind kind) {
    if (kind != ElementKind::kService) return;
    for (const Pair& part : PartPairs(models_, pair, ElementKind::kOperation)) {
      if (!part.IsMatched()) AddWhole(part);
    }
  }

  Changes& changes_;
  ModelPair models_;
};

}  // namespace

void CompareMetamodel(Changes& changes) {
  MetamodelComparer(changes).Compare();
}

}  // namespace Zelk::Analysis::Diff
