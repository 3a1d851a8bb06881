#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "analysis/lint/authentication_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

bool IsList(ElementKind kind) {
  return kind == ElementKind::kPackageList || kind == ElementKind::kServiceList ||
         kind == ElementKind::kOperationList;
}

/// What clients see of a scheme.
using Definition = std::tuple<std::string_view, std::string_view, std::string_view>;

Definition DefinitionOf(const Model& model, ElementId scheme) {
  const Document& document = model.DocumentOf(scheme);
  const auto text = [&](const char* key) {
    const NodeId node = document.Find(model[scheme].node, key);
    return node == kNoNode ? std::string_view() : document.String(node);
  };
  const std::string_view type = kSchemeTypes.Find(text("type"));
  return {text("authenticationScheme"), type,
          type == "SESSION_AWARE" ? text("sessionManager") : std::string_view()};
}

/// Reports entries that say nothing new. Returns whether the list has any.
bool CheckEntries(const Model& model, ElementId list, Findings& findings) {
  std::map<Definition, ElementId> schemes;
  for (const ElementId entry : model.Children(list)) {
    if (model[entry].kind != ElementKind::kEntry) continue;
    const ElementId scheme = model[entry].target;
    const auto [first, is_new] = schemes.emplace(DefinitionOf(model, scheme), scheme);
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
    if (!IsList(element.kind) || !IsKept(element) || element.is_implied) continue;
    if (CheckEntries(model, id, findings)) continue;
    findings.Add(PlaceOf(model, id),
                 {"the list of " + Called(model, id) + " is empty", "", "", Severity::kNote});
  }
}

}  // namespace Zelk::Analysis::Lint
