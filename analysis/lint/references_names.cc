#include <map>
#include <vector>

#include "analysis/lint/references_rules.h"
#include "analysis/lint/unknown_names.h"
#include "analysis/resources.h"

namespace Zelk::Analysis::Lint {
namespace {

/// Calls `look` with the references that Metamodel files have.
template <typename Look>
void ForEachReference(const Workspace& workspace, const Look& look) {
  for (const Reference& reference : workspace.GetReferences().All()) {
    if (reference.from.domain == Domain::kMetamodel) look(reference);
  }
}

bool IsErrorStructure(const Model& model, ElementId structure) {
  const Document& document = model.DocumentOf(structure);
  const NodeId type = document.Find(model[structure].node, "type");
  return kStructureTypes.Find(document.String(type)) == std::string_view("ERROR");
}

std::string InQuotes(std::string_view name) {
  return "'" + std::string(name) + "'";
}

/// What operations lead to, directly and through the fields of structures.
class Reachable {
 public:
  explicit Reachable(const Workspace& workspace)
      : model_(workspace.ModelOf(Domain::kMetamodel)),
        references_(workspace.GetReferences()),
        is_reached_(model_.Size()) {
    for (ElementId id = 0; id < model_.Size(); ++id) {
      if (model_[id].kind == ElementKind::kOperation) AddNamedBy(id);
    }
    while (!pending_.empty()) {
      const ElementId id = pending_.back();
      pending_.pop_back();
      AddNamedBy(id);
    }
  }

  bool Has(ElementId id) const { return is_reached_[id]; }

 private:
  void AddNamedBy(ElementId owner) {
    for (const ElementId part : model_.Children(owner)) {
      for (const Reference& reference : references_.From({Domain::kMetamodel, part})) {
        const ElementId target = reference.target.element;
        if (target == kNoElement || is_reached_[target]) continue;
        is_reached_[target] = true;
        pending_.push_back(target);
      }
    }
  }

  const Model& model_;
  const References& references_;
  std::vector<bool> is_reached_;
  std::vector<ElementId> pending_;
};

}  // namespace

void UnresolvedReference(const Workspace& workspace, Findings& findings) {
  UnknownNames unknown(workspace, findings);
  ForEachReference(workspace, [&](const Reference& reference) {
    const bool is_type =
        reference.kind == ReferenceKind::kType && reference.wanted != ElementKind::kNone;
    const bool is_named = is_type || reference.kind == ReferenceKind::kError;
    if (!is_named || reference.target.element != kNoElement) return;
    unknown.Report(PlaceOf(workspace, reference), reference.wanted, reference.name);
  });
}

void ReferenceKindMismatch(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  ForEachReference(workspace, [&](const Reference& reference) {
    const bool is_type =
        reference.kind == ReferenceKind::kType && reference.wanted != ElementKind::kNone;
    if (!is_type || reference.target.element == kNoElement) return;
    const ElementKind kind = model[reference.target.element].kind;
    if (kind == reference.wanted) return;
    findings.Add(PlaceOf(workspace, reference),
                 {InQuotes(reference.name) + (kind == ElementKind::kEnumeration
                                                  ? " is an enumeration, not a structure"
                                                  : " is a structure, not an enumeration"),
                  std::string(reference.name)});
  });
}

void NotAnError(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  ForEachReference(workspace, [&](const Reference& reference) {
    const ElementId target = reference.target.element;
    if (target == kNoElement || model[target].kind != ElementKind::kStructure) return;
    const bool is_error = IsErrorStructure(model, target);
    if (reference.kind == ReferenceKind::kError && !is_error) {
      findings.Add(PlaceOf(workspace, reference),
                   {"the structure " + InQuotes(reference.name) + " is not of type ERROR",
                    std::string(reference.name)});
    }
    const bool is_parameter = model[reference.from.element].kind == ElementKind::kParameter;
    if (reference.kind == ReferenceKind::kType && is_parameter && is_error) {
      findings.Add(PlaceOf(workspace, reference),
                   {"the error " + InQuotes(reference.name) + " is the type of a parameter",
                    std::string(reference.name), "", Severity::kWarning});
    }
  });
}

void UnusedDefinition(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const Reachable reachable(workspace);
  // Clients find models by their resources.
  std::vector<bool> is_model(model.Size());
  for (const ResourceUse& use : ResourceUses(model)) {
    if (use.model != kNoElement) is_model[use.model] = true;
  }
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    const bool is_definition =
        element.kind == ElementKind::kStructure || element.kind == ElementKind::kEnumeration;
    if (!is_definition || element.fate != Fate::kFound) continue;
    if (reachable.Has(id) || is_model[id]) continue;
    findings.Add(PlaceOf(model, id), {Called(model, id) + " is not used by any operation"});
  }
}

void ResourceWithoutModel(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const std::vector<ResourceUse> uses = ResourceUses(model);
  std::map<std::string_view, bool> has_model;
  for (const ResourceUse& use : uses) has_model[use.resource] |= use.model != kNoElement;
  for (const ResourceUse& use : uses) {
    bool& is_done = has_model[use.resource];
    if (is_done || workspace.IsExternal(use.resource)) continue;
    is_done = true;
    Place place = PlaceOf(model, use.annotation, use.node);
    place.element = kNoElement;
    const std::string name(use.resource);
    findings.Add(place, {"no structure is a model of the resource '" + name + "'", name});
  }
}

}  // namespace Zelk::Analysis::Lint
