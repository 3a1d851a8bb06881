#include "analysis/call.h"
#include "analysis/lint/cli_rules.h"
#include "analysis/lint/unknown_names.h"

namespace Zelk::Analysis::Lint {
namespace {

/// "the operation 'c.p.s.get' has no parameter 'x'".
Remark MissingPart(const Model& metamodel, ElementId owner, ElementKind kind, std::string_view name,
                   Findings& findings) {
  const std::string text(name);
  return {Called(metamodel, owner) + " has no " + Word(kind) + " '" + text + "'", text,
          PartHint(metamodel, owner, kind, name, findings)};
}

Remark UnknownField(const Workspace& workspace, const Call& call, const FieldPath& path,
                    Findings& findings) {
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  if (path.found.empty()) {
    return MissingPart(metamodel, call.operation, ElementKind::kParameter, path.part, findings);
  }
  const ElementId last = path.found.back();
  if (path.end == FieldPath::kMissing) {
    return MissingPart(metamodel, workspace.GetDefinitions().ContentOf(last).definition,
                       ElementKind::kField, path.part, findings);
  }
  const std::string part(path.part);
  return {Called(metamodel, last) + " is not a structure and has no field '" + part + "'", part};
}

}  // namespace

void UnknownCommandTarget(const Workspace& workspace, Findings& findings) {
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  UnknownNames unknown(workspace, findings);
  ElementId service = kNoElement;
  for (const Reference& reference : workspace.GetReferences().All()) {
    if (reference.kind == ReferenceKind::kService) {
      service = reference.target.element;
      if (service == kNoElement) {
        unknown.Report(PlaceOf(workspace, reference), ElementKind::kService, reference.name);
      }
    }
    if (reference.kind == ReferenceKind::kOperation && reference.target.element == kNoElement) {
      findings.Add(
          PlaceOf(workspace, reference),
          MissingPart(metamodel, service, ElementKind::kOperation, reference.name, findings));
    }
  }
}

void UnknownOptionField(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  for (const Call& call : CallsOf(workspace)) {
    if (call.operation == kNoElement) continue;
    for (const Filling& filling : FillingsOf(workspace, call)) {
      const FieldPath& path = filling.path;
      if (path.end == FieldPath::kComplete || path.end == FieldPath::kUnknown) continue;
      const NodeId node =
          model.DocumentOf(filling.option).Find(model[filling.option].node, "field_name");
      findings.Add(PlaceOf(model, filling.option, node),
                   UnknownField(workspace, call, path, findings));
    }
  }
}

void UnknownOutputField(const Workspace& workspace, Findings& findings) {
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  UnknownNames unknown(workspace, findings);
  ElementId structure = kNoElement;
  for (const Reference& reference : workspace.GetReferences().All()) {
    const bool is_found = reference.target.element != kNoElement;
    if (reference.kind == ReferenceKind::kOutput) {
      structure = reference.target.element;
      if (!is_found) {
        unknown.Report(PlaceOf(workspace, reference), ElementKind::kStructure, reference.name);
      }
    }
    if (reference.kind == ReferenceKind::kOutputField && !is_found) {
      findings.Add(
          PlaceOf(workspace, reference),
          MissingPart(metamodel, structure, ElementKind::kField, reference.name, findings));
    }
  }
}

}  // namespace Zelk::Analysis::Lint
