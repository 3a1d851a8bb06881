#include <array>
#include <set>
#include <string>
#include <tuple>

#include "analysis/diff/comparers.h"
#include "analysis/diff/example_fields.h"
#include "analysis/diff/shapes.h"
#include "analysis/diff/verdicts.h"
#include "analysis/fates.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Namespaces are left out: several sources share them, and what is in them is looked at.
constexpr std::array<ElementKind, 9> kLookedUp{
    ElementKind::kComponent,   ElementKind::kPackage,       ElementKind::kService,
    ElementKind::kStructure,   ElementKind::kEnumeration,   ElementKind::kPackageList,
    ElementKind::kServiceList, ElementKind::kOperationList, ElementKind::kCommand};

/// The source, and the kind, path and name of an element in it.
using Identity = std::tuple<std::string_view, ElementKind, std::string_view, std::string_view>;

std::string_view SourceOf(const Model& model, ElementId id) {
  return model.Sources()[model[id].source].id;
}

/// What lookups do not return, since another source comes first.
std::set<Identity> Shadowed(const Model& model) {
  std::set<Identity> shadowed;
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.fate != Fate::kShadowed || !HasLookup(element.kind)) continue;
    shadowed.emplace(SourceOf(model, id), element.kind, element.path, element.name);
  }
  return shadowed;
}

class SourceComparer {
 public:
  SourceComparer(Changes& changes, Domain domain)
      : changes_(changes),
        domain_(domain),
        models_(changes.Models(domain)),
        old_shadowed_(Shadowed(models_.old_model)),
        new_shadowed_(Shadowed(models_.new_model)),
        old_shapes_(models_.old_model, Shapes::Extent::kAll),
        new_shapes_(models_.new_model, Shapes::Extent::kAll) {}

  void Compare() {
    if (old_shadowed_.empty() && new_shadowed_.empty()) return;
    for (const ElementKind kind : kLookedUp) {
      for (const Pair& pair : LookupPairs(models_, kind)) {
        if (pair.IsMatched()) Look(pair);
      }
    }
  }

 private:
  void Look(Pair pair) {
    const std::string_view old_source = SourceOf(models_.old_model, pair.old_id);
    const std::string_view new_source = SourceOf(models_.new_model, pair.new_id);
    if (old_source == new_source) return;
    // Otherwise it was moved, and nothing competes with it.
    const Element& element = models_.old_model[pair.old_id];
    const bool is_other =
        old_shadowed_.count({new_source, element.kind, element.path, element.name}) != 0 ||
        new_shadowed_.count({old_source, element.kind, element.path, element.name}) != 0;
    if (!is_other || IsInAnswered(pair) || !IsSame(pair)) return;
    changes_.Add("answering-source-changed", domain_, pair,
                 {"the source '" + Shortened(new_source) + "' answers for " +
                      Called(models_.new_model, pair.new_id) + " instead of '" +
                      Shortened(old_source) + "', with the same data",
                  std::string(old_source), std::string(new_source)});
  }

  /// Whether what it is in is answered by other sources, too.
  bool IsInAnswered(Pair pair) const {
    const ElementId old_owner = models_.old_model[pair.old_id].owner;
    const ElementId new_owner = models_.new_model[pair.new_id].owner;
    return old_owner != kNoElement && new_owner != kNoElement &&
           models_.old_model[old_owner].fate == Fate::kFound &&
           models_.new_model[new_owner].fate == Fate::kFound &&
           models_.old_model[old_owner].kind != ElementKind::kNamespace;
  }

  bool IsSame(Pair pair) const {
    if (IsSameText(models_, pair)) return true;
    return domain_ == Domain::kMetamodel &&
           old_shapes_.Of(pair.old_id) == new_shapes_.Of(pair.new_id);
  }

  Changes& changes_;
  Domain domain_;
  ModelPair models_;
  std::set<Identity> old_shadowed_;
  std::set<Identity> new_shadowed_;
  Shapes old_shapes_;
  Shapes new_shapes_;
};

// clang-format off
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): only macros join literals
#define ZELK_LEVEL(fields) \
  "\n  " R"({"name": "acme.power", "documentation": "Power.", "metadata": {}, "enumerations": [],)" \
  "\n  \"services\": [], \"structures\": [" \
  ZELK_EXAMPLE_STRUCTURE("acme.power.level", "STRUCTURE", fields) "]}"
// clang-format on

constexpr Kind kRows[] = {
    {"answering-source-changed",
     Area::kSources,
     "answering source",
     Action::kChanged,
     Always(kN, kN, kN, kN, kC),
     "Another source answers",
     "Two sources have the same definition, and now the other one comes first. The answer is the "
     "same.",
     "Keep one of them.",
     {{ZELK_EXAMPLE_COMPONENT("", ""), ZELK_EXAMPLE_COMPONENT("", ""), ZELK_OTHER("")},
      {ZELK_OTHER(""), ZELK_EXAMPLE_COMPONENT("", "")},
      "metamodel/component:acme"}},
    {"shadowed-definition-changed",
     Area::kSources,
     "shadowed definition",
     Action::kChanged,
     Always(kD, kD, kN, kD, kD),
     "A definition that lookups do not find was changed, added or removed",
     "Several definitions have the same name. Lookups of the name find another one, but this one "
     "is "
     "in the answers for what it is in. The files do not decide which one programs use. It is "
     "documentation if only the documentation of the definition has changed.",
     "Give each definition a name of its own.",
     {{ZELK_EXAMPLE_COMPONENT(ZELK_LEVEL(ZELK_VOLTS), ""), ZELK_OTHER(ZELK_LEVEL(ZELK_VOLTS))},
      {ZELK_EXAMPLE_COMPONENT(ZELK_LEVEL(ZELK_VOLTS), ""), ZELK_OTHER(ZELK_LEVEL(""))},
      "metamodel/component:other/package:acme.power/structure:acme.power.level"}},
    {"source-lost",
     Area::kSources,
     "source",
     Action::kRemoved,
     Always(kB, kB, kB, kB, kB),
     "A file does not load any more",
     "Hosts that load the new version do not have what is in the file. It is left out of the "
     "comparison.",
     "Fix the file.",
     {{ZELK_EXAMPLE_CLI("")}, {R"({"cli": 1})"}, "source:file"}},
    {"source-repaired",
     Area::kSources,
     "source",
     Action::kAdded,
     Always(kD, kD, kD, kD, kD),
     "A file that does not load was repaired or removed",
     "The old version answers nothing from the file, so what is in it now is not compared. The run "
     "fails until this is accepted, for exactly these two texts.",
     "Compare the file with the last version that loads, and accept this change if it breaks no "
     "caller.",
     {{R"({"cli": 1})"}, {ZELK_EXAMPLE_CLI("")}, "source:file"}},
    {"formatting-only",
     Area::kSources,
     "formatting",
     Action::kChanged,
     Always(kN, kN, kN, kN, kN),
     "The files differ, but the answers are the same",
     "Programs that compare fingerprints load the metadata again.",
     "No action is needed.",
     {{ZELK_EXAMPLE_COMPONENT("", "")},
      {R"({"metamodel": {"component": {"metadata": {}, "packages": [],
  "documentation": "Controls machines.", "name": "acme"}}})"},
      "metamodel"}},
};

}  // namespace

const Rows<Kind> kSourceKinds = kRows;

void CompareSources(Changes& changes, Domain domain) {
  SourceComparer(changes, domain).Compare();
}

}  // namespace Zelk::Analysis::Diff
