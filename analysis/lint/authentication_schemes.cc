#include <map>
#include <string>
#include <vector>

#include "analysis/lint/authentication_rules.h"
#include "analysis/schemes.h"

namespace Zelk::Analysis::Lint {
namespace {

/// Reports entries that say nothing new. Returns whether the list has any.
bool CheckEntries(const Model& model, ElementId list, Findings& findings) {
  std::map<Scheme, ElementId> schemes;
  for (const ElementId entry : model.Children(list)) {
    if (model[entry].kind != ElementKind::kEntry) continue;
    const ElementId scheme = model[entry].target;
    const auto [first, is_new] = schemes.emplace(SchemeOf(model, scheme), scheme);
    if (is_new) continue;
    const std::string name(model[entry].name);
    const std::string message = first->second == scheme
                                    ? "the list names the scheme '" + name + "' twice"
                                    : "the list names two equal schemes, '" +
                                          std::string(model[first->second].name) + "' and '" +
                                          name + "'";
    findings.Add(PlaceOf(model, entry), {message, name});
  }
  return !schemes.empty();
}

}  // namespace

void UnusedScheme(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  ForEachElement(model, ElementKind::kScheme, [&](ElementId id) {
    const bool is_used = !workspace.GetReferences().To({Domain::kAuthentication, id}).empty();
    if (!IsKept(model[id]) || is_used) return;
    findings.Add(PlaceOf(model, id), {Called(model, id) + " is not in any list"});
  });
}

void SchemeList(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (!IsSchemeList(element.kind) || !IsKept(element) || element.is_implied) continue;
    if (CheckEntries(model, id, findings)) continue;
    findings.Add(PlaceOf(model, id),
                 {"the list of " + Called(model, id) + " is empty", "", "", Severity::kNote});
  }
}

}  // namespace Zelk::Analysis::Lint
