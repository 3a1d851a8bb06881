#include "analysis/lint/unknown_names.h"

namespace Zelk::Analysis::Lint {

const std::vector<std::string>& UnknownNames::Known(ElementKind kind) {
  const auto [known, is_new] = known_.try_emplace(kind);
  if (!is_new) return known->second;
  const Model& model = workspace_.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].kind == kind && model[id].fate == Fate::kFound) {
      known->second.emplace_back(model[id].name);
    }
  }
  return known->second;
}

Remark UnknownNames::RemarkOn(ElementKind wanted, std::string_view name) {
  const std::string text(name);
  return {std::string("the ") + Word(wanted) + " '" + text + "' is not loaded", text,
          findings_.Hint(name, Known(wanted))};
}

void UnknownNames::ReportMissing(const Place& place, ElementKind wanted, std::string_view name) {
  findings_.Add(place, RemarkOn(wanted, name));
}

void UnknownNames::Report(const Place& place, ElementKind wanted, std::string_view name) {
  if (workspace_.GetDefinitions().IsLoaded(name)) return ReportMissing(place, wanted, name);
  if (workspace_.IsExternal(name) || !noted_.insert(name).second) return;
  Remark remark = RemarkOn(wanted, name);
  remark.severity = Severity::kNote;
  Place at = place;
  at.element = kNoElement;
  findings_.Add(at, std::move(remark));
}

std::string PartHint(const Model& model, ElementId owner, ElementKind kind, std::string_view name,
                     Findings& findings) {
  const ElementIds children = model.Children(owner);
  if (!findings.MayHint(static_cast<std::size_t>(children.end() - children.begin()))) return "";
  std::vector<std::string> known;
  for (const ElementId child : children) {
    if (model[child].kind == kind) known.emplace_back(model[child].name);
  }
  return findings.Hint(name, known);
}

Place PlaceOf(const Workspace& workspace, const Reference& reference) {
  const Model& model = workspace.ModelOf(reference.from.domain);
  const bool is_key = reference.kind == ReferenceKind::kListed &&
                      model[reference.from.element].kind != ElementKind::kComponent;
  return is_key ? PlaceOfKey(model, reference.from.element, reference.node)
                : PlaceOf(model, reference.from.element, reference.node);
}

}  // namespace Zelk::Analysis::Lint
