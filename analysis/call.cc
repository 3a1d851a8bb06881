#include "analysis/call.h"

#include "analysis/place.h"

namespace Zelk::Analysis {

std::vector<Call> CallsOf(const Workspace& workspace) {
  std::vector<Call> calls;
  for (const Reference& reference : workspace.GetReferences().All()) {
    const bool is_of_command = reference.from.domain == Domain::kCli;
    if (is_of_command && reference.kind == ReferenceKind::kService) {
      calls.push_back({reference.from.element, kNoElement});
    }
    if (is_of_command && reference.kind == ReferenceKind::kOperation) {
      calls.back().operation = reference.target.element;
    }
  }
  return calls;
}

std::vector<Filling> FillingsOf(const Workspace& workspace, const Call& call) {
  const Model& model = workspace.ModelOf(Domain::kCli);
  std::vector<Filling> fillings;
  for (const ElementId option : model.Children(call.command)) {
    if (model[option].kind != ElementKind::kOption) continue;
    const std::string_view field = TextOf(model, option, "field_name");
    FieldPath path{{}, FieldPath::kMissing, field};
    if (call.operation != kNoElement) {
      path = workspace.GetDefinitions().Follow(call.operation, field);
    }
    fillings.push_back({option, std::move(path)});
  }
  return fillings;
}

bool IsOptional(const Workspace& workspace, ElementId part) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const Document& document = model.DocumentOf(part);
  return ReadType(document, document.Find(model[part].node, "type")).word == "OPTIONAL";
}

}  // namespace Zelk::Analysis
