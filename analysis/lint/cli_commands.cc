#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "analysis/call.h"
#include "analysis/format.h"
#include "analysis/lint/cli_rules.h"
#include "analysis/options.h"

// What can be said about commands without what they call.

namespace Zelk::Analysis::Lint {
namespace {

/// Reports texts under a key of several elements that are there before.
class Repeated {
 public:
  Repeated(const Model& model, Findings& findings, const char* key, const char* called,
           Severity severity)
      : model_(model), findings_(findings), key_(key), called_(called), severity_(severity) {}

  void Look(ElementId id) {
    const Document& document = model_.DocumentOf(id);
    const NodeId node = document.Find(model_[id].node, key_);
    if (node == kNoNode || texts_.insert(document.String(node)).second) return;
    const std::string text(document.String(node));
    findings_.Add(
        PlaceOf(model_, id, node),
        {std::string("the ") + called_ + " '" + text + "' is there twice", text, "", severity_});
  }

 private:
  const Model& model_;
  Findings& findings_;
  const char* key_;
  const char* called_;
  Severity severity_;
  std::set<std::string_view> texts_;
};

void LookAtOptions(const Model& model, ElementId command, Findings& findings) {
  Repeated long_options(model, findings, "long_option", "option", Severity::kError);
  Repeated short_options(model, findings, "short_option", "short option", Severity::kError);
  Repeated fields(model, findings, "field_name", "field", Severity::kWarning);
  for (const ElementId option : model.Children(command)) {
    if (model[option].kind != ElementKind::kOption) continue;
    long_options.Look(option);
    short_options.Look(option);
    fields.Look(option);
  }
}

void LookAtOutput(const Model& model, ElementId output, Findings& findings) {
  Repeated fields(model, findings, "field_name", "output field", Severity::kWarning);
  Repeated titles(model, findings, "display_name", "title", Severity::kWarning);
  for (const ElementId field : model.Children(output)) {
    fields.Look(field);
    titles.Look(field);
  }
}

/// The path and the name of the namespace of that full name.
std::pair<std::string_view, std::string_view> IdentityOf(std::string_view full_name) {
  const std::size_t dot = full_name.rfind('.');
  if (dot == std::string_view::npos) return {std::string_view(), full_name};
  return {full_name.substr(0, dot), full_name.substr(dot + 1)};
}

}  // namespace

void DuplicateOption(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  for (ElementId id = 0; id < model.Size(); ++id) {
    if (!IsKept(model[id])) continue;
    if (model[id].kind == ElementKind::kCommand) LookAtOptions(model, id, findings);
    if (model[id].kind == ElementKind::kOutput) LookAtOutput(model, id, findings);
  }
}

void MalformedOption(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  const auto& reserved = workspace.GetSettings().reserved_options;
  const auto look = [&](ElementId option, const char* key,
                        const char* (*problem_of)(std::string_view)) {
    const Document& document = model.DocumentOf(option);
    const NodeId node = document.Find(model[option].node, key);
    if (node == kNoNode) return;
    const std::string text(document.String(node));
    if (const char* const problem = problem_of(text)) {
      findings.Add(PlaceOf(model, option, node), {"the option '" + text + "' " + problem, text});
    } else if (std::find(reserved.begin(), reserved.end(), text) != reserved.end()) {
      findings.Add(
          PlaceOf(model, option, node),
          {"clients have the option '" + text + "' themselves", text, "", Severity::kWarning});
    }
  };
  ForEachElement(model, ElementKind::kOption, [&](ElementId option) {
    look(option, "long_option", ProblemOfLong);
    look(option, "short_option", ProblemOfShort);
  });
}

void CommandNamespaceMissing(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  std::set<std::string_view> missing;
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.fate != Fate::kFound) continue;
    // The root needs no description.
    if (element.kind == ElementKind::kNamespace && element.is_implied && !element.name.empty()) {
      findings.Add(PlaceOf(model, id),
                   {Called(model, id) + " is not described", "", "", Severity::kNote});
    }
    if (element.kind != ElementKind::kCommand || element.path.empty()) continue;
    const auto [path, name] = IdentityOf(element.path);
    if (model.Find(ElementKind::kNamespace, name, path) != kNoElement) continue;
    if (!missing.insert(element.path).second) continue;
    Place place = PlaceOf(model, id, model.DocumentOf(id).Find(element.node, "path"));
    place.element = kNoElement;
    findings.Add(place, {"the namespace '" + std::string(element.path) +
                             "' is not described, so that no list of namespaces has its commands",
                         std::string(element.path)});
  }
}

void CommandIsNamespace(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.kind != ElementKind::kCommand || element.fate != Fate::kFound) continue;
    if (model.Find(ElementKind::kNamespace, element.name, element.path) == kNoElement) continue;
    findings.Add(PlaceOf(model, id), {"there is a namespace '" + model.FullName(id) + "', too"});
  }
}

}  // namespace Zelk::Analysis::Lint
