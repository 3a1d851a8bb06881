#include <optional>

#include "analysis/lint/finding.h"

namespace Zelk::Analysis::Lint {
namespace {

/// How much a missing text of an element of the kind matters; empty for kinds without texts.
std::optional<Severity> SeverityOf(ElementKind kind) {
  switch (kind) {
    case ElementKind::kComponent:
    case ElementKind::kPackage:
    case ElementKind::kService:
    case ElementKind::kOperation:
    case ElementKind::kStructure:
    case ElementKind::kEnumeration:
    case ElementKind::kNamespace:
    case ElementKind::kCommand:
    case ElementKind::kOption:
      return Severity::kWarning;
    case ElementKind::kParameter:
    case ElementKind::kResult:
    case ElementKind::kError:
    case ElementKind::kField:
    case ElementKind::kValue:
    case ElementKind::kConstant:
      return Severity::kNote;
    default:
      return std::nullopt;
  }
}

/// The text for people; kNoNode if the format gives the element none.
NodeId TextOf(const Document& document, NodeId element) {
  const NodeId text = document.Find(element, "documentation");
  return text == kNoNode ? document.Find(element, "description") : text;
}

bool SaysNothing(std::string_view text, std::string_view name) {
  return text.find_first_not_of(" \t\r\n") == std::string_view::npos || text == name;
}

void MissingDocumentation(const Workspace& workspace, Findings& findings) {
  for (const Domain domain : {Domain::kMetamodel, Domain::kCli}) {
    const Model& model = workspace.ModelOf(domain);
    for (ElementId id = 0; id < model.Size(); ++id) {
      const Element& element = model[id];
      const auto severity = SeverityOf(element.kind);
      if (!severity || element.is_implied || !IsKept(element)) continue;
      const Document& document = model.DocumentOf(id);
      const NodeId text = TextOf(document, element.node);
      if (text == kNoNode || !SaysNothing(document.String(text), element.name)) continue;
      const std::string key(document.Key(text));
      findings.Add(PlaceOf(model, id, text), {"the " + key + " of the " + Word(element.kind) +
                                                  " '" + Shortened(element.name) + "' says nothing",
                                              key, "", *severity});
    }
  }
}

constexpr Rule kRules[] = {
    {"missing-documentation",
     Group::kDocumentation,
     Severity::kWarning,
     DecidedBy::kConvention,
     kMetamodelOnly | kCliOnly,
     0,
     "Documentation that is empty or repeats the name",
     "The documentation or description is empty, or is the same as the name. It is a note for "
     "parameters, results, errors, fields, values and constants.",
     "A text that was left for later.",
     "Say what it is for in one sentence.",
     {{{R"({"cli": [{"type": "namespace", "path": "", "name": "acme", "description": ""}]})"}},
      "cli/namespace:acme"},
     MissingDocumentation},
};

}  // namespace

const Rows<Rule> kDocumentationRules = kRules;

}  // namespace Zelk::Analysis::Lint
