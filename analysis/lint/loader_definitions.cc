#include <algorithm>
#include <map>

#include <com/orvane/zelk/metadata/metamodel/metadata_identifier_svc.h>

#include "analysis/lint/loader_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

using ::Com::Orvane::Zelk::Metadata::Metamodel::MetadataIdentifierSvc::Constants;

/// Whether a resource is named within the element.
bool NamesResources(const Model& model, ElementId id) {
  const std::uint32_t end = model.DocumentOf(id)[model[id].node].end;
  // What is in an element follows it.
  for (ElementId part = id + 1; part < model.Size(); ++part) {
    const Element& element = model[part];
    if (element.source != model[id].source) return false;
    if (model.DocumentOf(part)[element.node].begin >= end) return false;
    if (element.kind == ElementKind::kAnnotation && element.name == Constants::RESOURCE) {
      return true;
    }
  }
  return false;
}

/// "'a', 'b' and 2 more".
std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t kMost = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), kMost); ++i) {
    text += (i == 0 ? "'" : ", '") + names[i] + "'";
  }
  if (names.size() > kMost) text += " and " + std::to_string(names.size() - kMost) + " more";
  return text;
}

/// The full names of those in the element that are of the kind.
std::vector<std::string> NamesIn(const Model& model, ElementId owner, ElementKind kind) {
  std::vector<std::string> names;
  for (const ElementId id : model.Children(owner)) {
    if (model[id].kind == kind && id != owner) names.push_back(model.FullName(id));
  }
  return names;
}

/// Of the operations of a component that are left out, one whose service sorts first: the library
/// stops there.
std::map<ElementId, ElementId> FirstLeftOut(const Model& model) {
  std::map<ElementId, ElementId> first;
  ForEachElement(model, ElementKind::kOperationList, [&](ElementId id) {
    if (model[id].fate != Fate::kIgnored) return;
    const auto [known, is_new] = first.emplace(model[id].parent, id);
    if (!is_new && OwnerOf(model[id].name) < OwnerOf(model[known->second].name)) {
      known->second = id;
    }
  });
  return first;
}

}  // namespace

void DuplicateDefinition(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (model[id].fate != Fate::kDropped) continue;
    std::string message = Called(model, id) + " is there more than once; the first one is kept, ";
    message += NamesResources(model, id) ? "and of this one only the resources that it names"
                                         : "this one is dropped";
    findings.Add(PlaceOf(model, id), {message});
  }
}

void IgnoredComponent(const OpenFile& file, Findings& findings) {
  const NodeId root = file.document.Find(kRootNode, FormatOf(Domain::kAuthentication).root_key);
  for (const char* const key : {"product", "component"}) {
    const NodeId member = file.document.Find(root, key);
    if (member == kNoNode) continue;
    const ElementId element = file.around[member];
    const bool is_element = element != kNoElement && file.model[element].node == member;
    if (!is_element || file.model[element].fate == Fate::kIgnored) {
      findings.Add({file.model.GetDomain(), file.source, kNoElement, member,
                    file.document[member].key_begin},
                   {std::string("the ") + key + " is broken and left out", key});
    } else if (file.model[element].fate == Fate::kOverridden) {
      findings.Add(file.PlaceOfKey(member),
                   {"the component has the same name, and replaces this one", key});
    }
  }
}

void LostServices(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  ForEachElement(model, ElementKind::kPackageList, [&](ElementId id) {
    if (model[id].fate != Fate::kOverridden) return;
    const auto services = NamesIn(model, id, ElementKind::kServiceList);
    if (services.empty()) return;
    findings.Add(PlaceOf(model, id), {Called(model, id) +
                                      " is listed more than once; the last list is kept, and lost "
                                      "with this one: " +
                                      Listed(services)});
  });
}

void OperationWithoutPackage(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kAuthentication);
  const auto first = FirstLeftOut(model);
  ForEachElement(model, ElementKind::kOperationList, [&](ElementId id) {
    const Element& element = model[id];
    if (element.fate != Fate::kIgnored) return;
    const std::string service(OwnerOf(element.name));
    const Element& cause = model[first.at(element.parent)];
    findings.Add(PlaceOf(model, id),
                 {"the operation is lost, because the service '" + Shortened(OwnerOf(cause.name)) +
                      "' of '" + Shortened(cause.name) + "' is in no package",
                  service});
  });
}

void DuplicateCommand(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  ForEachElement(model, ElementKind::kCommand, [&](ElementId id) {
    if (model[id].fate != Fate::kOverridden) return;
    findings.Add(
        PlaceOf(model, id),
        {Called(model, id) + " is there more than once; the last one is kept, not this one"});
  });
}

void NamespaceLosesChildren(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.kind != ElementKind::kNamespace || element.fate != Fate::kOverridden) continue;
    const auto children = NamesIn(model, id, ElementKind::kNamespace);
    const ElementId shown = element.is_implied ? element.by : id;
    std::string message = Called(model, shown);
    message += element.is_implied ? " is described after what is in it"
                                  : " is described again later, and this description is dropped";
    if (!children.empty()) message += "; no longer listed in it: " + Listed(children);
    findings.Add(PlaceOf(model, shown), {message});
  }
}

void ConstantWithoutValue(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  ForEachElement(model, ElementKind::kConstant, [&](ElementId id) {
    const Document& document = model.DocumentOf(id);
    const NodeId type = document.Find(model[id].node, "type");
    const NodeId value = document.Find(model[id].node, "value");
    const auto is = [&](const char* key, const char* word) {
      return ToUpper(document.String(document.Find(type, key))) == word;
    };
    const bool is_text = is("category", "PRIMITIVE") && is("type", "STRING");
    if (is_text && document[value].kind == NodeKind::kString) return;
    findings.Add(PlaceOf(model, id, value),
                 {is_text ? "the value of a STRING constant is not a string, so it has none"
                          : "only STRING constants keep their values",
                  "", "", is_text ? Severity::kError : Severity::kNote});
  });
}

}  // namespace Zelk::Analysis::Lint
