#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "analysis/example.h"
#include "analysis/fates.h"
#include "analysis/lint/finding.h"
#include "analysis/lint/shape.h"
#include "analysis/resources.h"

// What several sources say about one name.

namespace Zelk::Analysis::Lint {
namespace {

const std::string& FileNameOf(const Workspace& workspace, Domain domain, std::uint32_t source) {
  return workspace.Files()[workspace.FileOf(domain, source)].name;
}

/// Where the definition is that lookups return in place of the element, and why.
std::string WinnerText(const Workspace& workspace, const Model& model, const Element& element) {
  const Element& winner = model[element.by];
  if (winner.source == element.source) {
    return "another one of the same file comes first";
  }
  const std::string file = "'" + FileNameOf(workspace, model.GetDomain(), winner.source) + "'";
  return winner.source < element.source
             ? "that of " + file + " comes first, as its source id does"
             : "that of " + file + " comes first, since it is further out";
}

bool IsSameDefinition(const Model& model, ElementId id) {
  const ElementId winner = model[id].by;
  return !model[winner].is_implied && IsSameValue(model.DocumentOf(id), model[id].node,
                                                  model.DocumentOf(winner), model[winner].node);
}

/// Whether what it is in is reported, and this with it.
bool IsInShadow(const Model& model, const Element& element) {
  if (element.owner == kNoElement) return false;
  const Element& owner = model[element.owner];
  return owner.fate == Fate::kShadowed && !owner.is_implied && owner.by == model[element.by].owner;
}

void ShadowedDefinition(const Workspace& workspace, Findings& findings) {
  for (const Domain domain : kDomains) {
    const Model& model = workspace.ModelOf(domain);
    for (ElementId id = 0; id < model.Size(); ++id) {
      const Element& element = model[id];
      const bool is_shadowed = element.fate == Fate::kShadowed && HasLookup(element.kind) &&
                               element.kind != ElementKind::kNamespace;
      if (!is_shadowed || element.is_implied || IsInShadow(model, element)) continue;
      Remark remark{"no lookup returns " + Called(model, id) + ": " +
                    WinnerText(workspace, model, element)};
      if (IsSameDefinition(model, id)) remark.severity = Severity::kWarning;
      findings.Add(PlaceOf(model, id), std::move(remark));
    }
  }
}

/// The path and the name of a namespace.
using Identity = std::pair<std::string_view, std::string_view>;

/// Namespaces that several sources have.
class SplitNamespaces {
 public:
  SplitNamespaces(const Workspace& workspace, Findings& findings)
      : workspace_(workspace), model_(workspace.ModelOf(Domain::kCli)), findings_(findings) {}

  void Look(ElementId id) {
    const Element& element = model_[id];
    const std::string hidden = HiddenChildren(id);
    if (hidden.empty()) return;
    const bool is_root = element.name.empty() && element.path.empty();
    Remark remark{(is_root ? "the root" : Called(model_, id)) + " lists only what '" +
                  FileNameOf(workspace_, Domain::kCli, model_[element.by].source) +
                  "' has in it, not " + hidden};
    if (is_root) remark.severity = Severity::kNote;
    findings_.Add(PlaceOf(model_, id), std::move(remark));
  }

 private:
  /// "'a.b' and others", or an empty text.
  std::string HiddenChildren(ElementId id) {
    const std::set<Identity>& answered = ChildrenOf(model_[id].by);
    std::string text;
    for (const ElementId child : model_.Children(id)) {
      if (!IsKept(model_[child]) || answered.count(IdentityOf(child)) != 0) continue;
      if (!text.empty()) return text + " and others";
      text = "'" + model_.FullName(child) + "'";
    }
    return text;
  }

  const std::set<Identity>& ChildrenOf(ElementId id) {
    const auto [children, is_new] = children_.try_emplace(id);
    if (is_new) {
      for (const ElementId child : model_.Children(id)) children->second.insert(IdentityOf(child));
    }
    return children->second;
  }

  Identity IdentityOf(ElementId id) const { return {model_[id].path, model_[id].name}; }

  const Workspace& workspace_;
  const Model& model_;
  Findings& findings_;
  std::map<ElementId, std::set<Identity>> children_;
};

/// Models that are not answered, because a later source names the resource, too.
void FindHiddenModels(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const std::vector<ResourceUse> uses = ResourceUses(model);
  std::map<std::string_view, std::uint32_t> last_sources;
  for (const ResourceUse& use : uses) last_sources[use.resource] = use.source;
  std::set<std::pair<std::string_view, std::string_view>> answered;
  for (const ResourceUse& use : uses) {
    if (use.model == kNoElement || use.source != last_sources[use.resource]) continue;
    answered.emplace(use.resource, model[use.model].name);
  }
  for (const ResourceUse& use : uses) {
    if (use.model == kNoElement) continue;
    // Of equal ones it does not matter which one is answered.
    if (!answered.emplace(use.resource, model[use.model].name).second) continue;
    const std::string resource(use.resource);
    findings.Add(PlaceOf(model, use.model),
                 {Called(model, use.model) + " is not listed as a model of '" + resource +
                      "': only those of '" +
                      FileNameOf(workspace, Domain::kMetamodel, last_sources[use.resource]) +
                      "' are, as its source id comes last",
                  resource});
  }
}

void SplitTree(const Workspace& workspace, Findings& findings) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  SplitNamespaces split(workspace, findings);
  for (ElementId id = 0; id < model.Size(); ++id) {
    const Element& element = model[id];
    if (element.kind == ElementKind::kNamespace && element.fate == Fate::kShadowed) split.Look(id);
  }
  FindHiddenModels(workspace, findings);
}

constexpr Rule kRules[] = {
    {"shadowed-definition",
     Group::kSources,
     Severity::kError,
     DecidedBy::kSources,
     kAllDomains,
     0,
     "A definition that no lookup returns",
     "Two sources, or two parts of one, have definitions of one kind and name. Lookups return the "
     "one whose source id comes first; of structures and enumerations those of packages come "
     "before those of services in any source. It is a warning if both are the same.",
     "A file that is loaded under two ids, or a definition that was moved.",
     "Remove one of them.",
     {{ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND("", "start", R"(, "options": [])")),
       ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_COMMAND("", "start", ""))},
      "cli/command:start"},
     ShadowedDefinition},
    {"split-tree",
     Group::kSources,
     Severity::kError,
     DecidedBy::kSources,
     kMetamodelOnly | kCliOnly,
     0,
     "A namespace or a resource in several sources",
     "If several sources have a namespace, the library returns only the description and the "
     "children of the first one; for the root it is a note. If several sources name a resource, "
     "the library returns only the models of the last one.",
     "Two files that describe parts of one tree.",
     "Describe what is in a namespace in one file, and a model where its resource is named last.",
     {{ZELK_EXAMPLE_CLI(ZELK_EXAMPLE_NAMESPACE("", "acme") "," ZELK_EXAMPLE_NAMESPACE("acme", "a")),
       ZELK_EXAMPLE_CLI(
           ZELK_EXAMPLE_NAMESPACE("", "acme") "," ZELK_EXAMPLE_NAMESPACE("acme", "b"))},
      "cli/namespace:acme"},
     SplitTree},
};

}  // namespace

const Rows<Rule> kSourcesRules = kRules;

}  // namespace Zelk::Analysis::Lint
