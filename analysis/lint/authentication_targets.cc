#include <set>
#include <string>
#include <vector>

#include "analysis/format.h"
#include "analysis/lint/authentication_rules.h"
#include "analysis/lint/unknown_names.h"

namespace Zelk::Analysis::Lint {
namespace {

/// Whether Metamodel files describe the component that the element is in.
bool IsOfLoadedComponent(const Workspace& workspace, ElementId id) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  while (model[id].kind != ElementKind::kComponent) id = model[id].owner;
  return workspace.ModelOf(Domain::kMetamodel).Find(ElementKind::kComponent, model[id].name) !=
         kNoElement;
}

/// Reports what Authentication files list and Metamodel files lack.
class UnknownTargets {
 public:
  UnknownTargets(const Workspace& workspace, Findings& findings)
      : workspace_(workspace),
        metamodel_(workspace.ModelOf(Domain::kMetamodel)),
        findings_(findings),
        unknown_(workspace, findings) {}

  void Look(const Reference& reference) {
    if (reference.target.element != kNoElement) return;
    const Place place = PlaceOf(workspace_, reference);
    if (reference.kind == ReferenceKind::kSessionManager ||
        reference.wanted == ElementKind::kComponent) {
      return unknown_.Report(place, reference.wanted, reference.name);
    }
    if (reference.kind != ReferenceKind::kListed) return;
    // About a component that is not loaded nothing is known.
    if (!IsOfLoadedComponent(workspace_, reference.from.element)) return;
    if (reference.wanted == ElementKind::kOperation) return LookAtOperation(place, reference.name);
    unknown_.ReportMissing(place, reference.wanted, reference.name);
  }

 private:
  void LookAtOperation(const Place& place, std::string_view name) {
    const std::string_view service = OwnerOf(name);
    const ElementId found = metamodel_.Find(ElementKind::kService, service);
    if (found == kNoElement) {
      if (services_.insert(service).second) {
        unknown_.ReportMissing(place, ElementKind::kService, service);
      }
      return;
    }
    const std::string operation(name.substr(service.size() + 1));
    findings_.Add(
        place,
        {"the service '" + std::string(service) + "' has no operation '" + operation + "'",
         operation, PartHint(metamodel_, found, ElementKind::kOperation, operation, findings_)});
  }

  const Workspace& workspace_;
  const Model& metamodel_;
  Findings& findings_;
  UnknownNames unknown_;
  /// Those that are unknown and that operations have been reported for.
  std::set<std::string_view> services_;
};

/// Whether the name has a list of its own in the domain.
bool IsListed(const Model& authentication, ElementKind kind, std::string_view name) {
  const ElementId list = authentication.Find(kind, name);
  return list != kNoElement && !authentication[list].is_implied;
}

/// The operations of the service that no list says anything about.
std::vector<ElementId> UnlistedOperations(const Model& metamodel, const Model& authentication,
                                          ElementId service) {
  std::vector<ElementId> operations;
  for (const ElementId id : metamodel.Children(service)) {
    if (metamodel[id].kind != ElementKind::kOperation || metamodel[id].fate != Fate::kFound)
      continue;
    const std::string name = metamodel.FullName(id);
    if (!IsListed(authentication, ElementKind::kOperationList, name)) operations.push_back(id);
  }
  return operations;
}

}  // namespace

void UnknownAuthenticationTarget(const Workspace& workspace, Findings& findings) {
  UnknownTargets targets(workspace, findings);
  for (const Reference& reference : workspace.GetReferences().All()) {
    if (reference.from.domain == Domain::kAuthentication) targets.Look(reference);
  }
}

void AuthenticationPackageMismatch(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.kind != ElementKind::kServiceList || element.fate != Fate::kFound) continue;
    const ElementId service = metamodel.Find(ElementKind::kService, element.name);
    if (service == kNoElement) continue;
    const std::string_view by_name = OwnerOf(element.name);
    const std::string package(metamodel[metamodel[service].owner].name);
    if (by_name == package) continue;
    Remark remark{"the service '" + std::string(element.name) + "' is listed in the package '" +
                      std::string(by_name) + "', but is in '" + package + "'",
                  package};
    if (IsListed(model, ElementKind::kPackageList, by_name)) remark.severity = Severity::kWarning;
    findings.Add(PlaceOf(model, id), std::move(remark));
  }
}

void OperationWithoutScheme(const Workspace& workspace, Findings& findings) {
  const Model& metamodel = workspace.ModelOf(Domain::kMetamodel);
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  for (ElementId id = 0; id < metamodel.Size(); ++id) {
    if (metamodel[id].kind != ElementKind::kService || metamodel[id].fate != Fate::kFound) continue;
    const Element& package = metamodel[metamodel[id].owner];
    const std::string_view component = metamodel[package.owner].name;
    if (model.Find(ElementKind::kComponent, component) == kNoElement) continue;
    if (IsListed(model, ElementKind::kPackageList, package.name)) continue;
    if (IsListed(model, ElementKind::kServiceList, metamodel[id].name)) continue;
    for (const ElementId operation : UnlistedOperations(metamodel, model, id)) {
      findings.Add(
          PlaceOf(metamodel, operation),
          {Called(metamodel, operation) + " has no schemes, nor has its service or package"});
    }
  }
}

}  // namespace Zelk::Analysis::Lint
