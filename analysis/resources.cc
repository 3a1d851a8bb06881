#include "analysis/resources.h"

#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

namespace Zelk::Analysis {
namespace {

using ::Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc::Constants;

class UseFinder {
 public:
  explicit UseFinder(const Model& model) : model_(model) {}

  std::vector<ResourceUse> Find() {
    for (ElementId id = 0; id < model_.Size(); ++id) {
      const Element& element = model_[id];
      if (element.kind == ElementKind::kAnnotation && element.name == Constants::RESOURCE) {
        AddNames(id);
      }
      if (element.kind == ElementKind::kStructure) AddModels(id);
    }
    return std::move(uses_);
  }

 private:
  void Add(ElementId annotation, NodeId name, ElementId structure) {
    uses_.push_back({model_.DocumentOf(annotation).String(name), model_[annotation].source,
                     annotation, name, structure});
  }

  /// One name, or a list of them.
  void AddNames(ElementId annotation) {
    const Document& document = model_.DocumentOf(annotation);
    const NodeId value = ResourceValue(model_, annotation);
    if (value == kNoNode) return;
    if (document[value].kind == NodeKind::kString) return Add(annotation, value, kNoElement);
    for (NodeId name = document[value].first_child; name != kNoNode; name = document[name].next) {
      Add(annotation, name, kNoElement);
    }
  }

  /// A structure that is marked as a model is one for each key that names one resource.
  void AddModels(ElementId structure) {
    if (AnnotationOf(model_, structure, Constants::MODEL) == kNoElement) return;
    const Document& document = model_.DocumentOf(structure);
    for (const ElementId field : model_.Children(structure)) {
      if (model_[field].kind != ElementKind::kField) continue;
      const ElementId annotation = AnnotationOf(model_, field, Constants::RESOURCE);
      const bool is_key = AnnotationOf(model_, field, kModelKey) != kNoElement;
      if (annotation == kNoElement || !is_key) continue;
      const NodeId value = ResourceValue(model_, annotation);
      // A key that is not of one resource ends the search.
      if (value == kNoNode || document[value].kind != NodeKind::kString) return;
      Add(annotation, value, structure);
    }
  }

  const Model& model_;
  std::vector<ResourceUse> uses_;
};

}  // namespace

NodeId ResourceValue(const Model& model, ElementId annotation) {
  const Document& document = model.DocumentOf(annotation);
  NodeId value = kNoNode;
  for (NodeId member = document[model[annotation].node].first_child; member != kNoNode;
       member = document[member].next) {
    if (document.Key(member) == "value") value = member;
  }
  return value;
}

ElementId AnnotationOf(const Model& model, ElementId element, std::string_view name) {
  ElementId annotation = kNoElement;
  for (const ElementId child : model.Children(element)) {
    const bool is_annotation = model[child].kind == ElementKind::kAnnotation;
    if (is_annotation && model[child].name == name) annotation = child;
  }
  return annotation;
}

std::vector<ResourceUse> ResourceUses(const Model& model) {
  return UseFinder(model).Find();
}

}  // namespace Zelk::Analysis
