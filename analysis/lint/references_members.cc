#include <algorithm>
#include <initializer_list>
#include <tuple>
#include <vector>

#include "analysis/lint/references_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

bool IsListed(ElementKind kind) {
  return kind == ElementKind::kParameter || kind == ElementKind::kField ||
         kind == ElementKind::kValue || kind == ElementKind::kError;
}

bool HasAny(const Model& model, ElementId owner, std::initializer_list<ElementKind> kinds) {
  for (const ElementId child : model.Children(owner)) {
    if (std::find(kinds.begin(), kinds.end(), model[child].kind) != kinds.end()) return true;
  }
  return false;
}

}  // namespace

void DuplicateMember(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  std::vector<ElementId> members;
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (IsListed(model[id].kind) && IsKept(model[id])) members.push_back(id);
  }
  const auto key = [&](ElementId id) {
    return std::tie(model[id].owner, model[id].kind, model[id].name);
  };
  std::stable_sort(members.begin(), members.end(),
                   [&](ElementId left, ElementId right) { return key(left) < key(right); });
  for (std::size_t i = 1; i < members.size(); ++i) {
    if (key(members[i]) != key(members[i - 1])) continue;
    findings.Add(PlaceOf(model, members[i]),
                 {Called(model, members[i]) + " is there twice, and both are kept"});
  }
}

void EmptyDefinition(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (!IsKept(model[id])) continue;
    if (model[id].kind == ElementKind::kEnumeration && !HasAny(model, id, {ElementKind::kValue})) {
      findings.Add(PlaceOf(model, id), {Called(model, id) + " has no values"});
    }
    Remark note{Called(model, id), "", "", Severity::kNote};
    if (model[id].kind == ElementKind::kService && !HasAny(model, id, {ElementKind::kOperation})) {
      note.message += " has no operations";
      findings.Add(PlaceOf(model, id), note);
    }
    if (model[id].kind == ElementKind::kPackage &&
        !HasAny(model, id,
                {ElementKind::kService, ElementKind::kStructure, ElementKind::kEnumeration})) {
      note.message += " is empty";
      findings.Add(PlaceOf(model, id), note);
    }
  }
}

}  // namespace Zelk::Analysis::Lint
