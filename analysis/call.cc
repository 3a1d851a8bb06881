#include "analysis/call.h"

#include "analysis/format.h"
#include "analysis/place.h"
#include "analysis/text.h"

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

std::string OptionTypeOf(const Workspace& workspace, ElementId part) {
  const Content& content = workspace.GetDefinitions().ContentOf(part);
  if (content.shape.arity == Arity::kOther) return "";
  const Document& document = workspace.ModelOf(Domain::kMetamodel).DocumentOf(part);
  const TypeLevel level = ReadType(document, content.shape.inner);
  const bool is_builtin = level.form == TypeForm::kBuiltin;
  return std::string(is_builtin ? level.word : document.String(level.name));
}

bool IsOptionType(const std::string& written, const std::string& type) {
  const char* const builtin = kBuiltinTypes.Find(written);
  return builtin != nullptr ? type == builtin : LowerCase(written) == LowerCase(type);
}

bool IsOptional(const Workspace& workspace, ElementId part) {
  const Model& model = workspace.ModelOf(Domain::kMetamodel);
  const Document& document = model.DocumentOf(part);
  return ReadType(document, document.Find(model[part].node, "type")).word == "OPTIONAL";
}

}  // namespace Zelk::Analysis
