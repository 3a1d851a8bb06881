#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

#include "analysis/lint/loader_rules.h"
#include "analysis/resources.h"

namespace Zelk::Analysis::Lint {
namespace {

using ::Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc::Constants;

void Add(const Model& model, ElementId annotation, const std::string& message, Findings& findings) {
  findings.Add(PlaceOf(model, annotation), {message});
}

void LookAtResource(const Model& model, ElementId annotation, Findings& findings) {
  const Document& document = model.DocumentOf(annotation);
  const NodeId value = ResourceValue(model, annotation);
  if (value == kNoNode) {
    Add(model, annotation, "the annotation 'Resource' has no 'value', so it names none", findings);
  } else if (document[value].kind == NodeKind::kArray && document[value].first_child == kNoNode) {
    Add(model, annotation, "the annotation 'Resource' has an empty list, so it names none",
        findings);
  }
}

/// Looks at the keys of the fields of a structure in the order in which the library does.
class KeyCheck {
 public:
  KeyCheck(const Model& model, Findings& findings) : model_(model), findings_(findings) {}

  void LookAt(ElementId structure) {
    const ElementId mark = AnnotationOf(model_, structure, Constants::MODEL);
    bool has_key = false;
    ElementId broken = kNoElement;
    for (const ElementId field : model_.Children(structure)) {
      if (model_[field].kind != ElementKind::kField) continue;
      const ElementId key = AnnotationOf(model_, field, kModelKey);
      if (key == kNoElement) continue;
      const std::string problem = ProblemOf(field, mark, broken);
      if (problem.empty()) has_key = true;
      if (!problem.empty()) Add(model_, key, problem, findings_);
    }
    if (mark == kNoElement || has_key) return;
    Add(model_, mark, "the structure is not a model, because none of its fields has a valid key",
        findings_);
  }

 private:
  /// Why the key of the field does not count; empty if it does. A key that is not of one resource
  /// ends the search, and is then `broken`.
  std::string ProblemOf(ElementId field, ElementId mark, ElementId& broken) const {
    if (mark == kNoElement) return "the structure is not marked as a 'Model'";
    if (broken != kNoElement) {
      return "the key is not read, because the key of '" + Shortened(model_[broken].name) +
             "' is not of one resource";
    }
    const ElementId resource = AnnotationOf(model_, field, Constants::RESOURCE);
    if (resource == kNoElement) return "the key has no 'Resource' beside it";
    const NodeId value = ResourceValue(model_, resource);
    if (value != kNoNode && model_.DocumentOf(field)[value].kind == NodeKind::kString) return "";
    broken = field;
    return "the 'Resource' of a key must be one string";
  }

  const Model& model_;
  Findings& findings_;
};

}  // namespace

void IgnoredAnnotation(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  ForEachElement(model, ElementKind::kAnnotation, [&](ElementId id) {
    if (!IsKept(model[id])) return;
    const std::string_view name = model[id].name;
    const ElementKind around = model[model[id].parent].kind;
    if (name == Constants::RESOURCE) LookAtResource(model, id, findings);
    if (name == Constants::MODEL && around != ElementKind::kStructure) {
      Add(model, id, "the annotation 'Model' is only read in structures", findings);
    }
    if (name == kModelKey && around != ElementKind::kField) {
      Add(model, id, "the annotation 'ModelKey' is only read in fields", findings);
    }
  });
  KeyCheck keys(model, findings);
  ForEachElement(model, ElementKind::kStructure, [&](ElementId id) {
    if (IsKept(model[id])) keys.LookAt(id);
  });
}

}  // namespace Zelk::Analysis::Lint
