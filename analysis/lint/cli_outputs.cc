#include <string>

#include "analysis/call.h"
#include "analysis/format.h"
#include "analysis/lint/cli_rules.h"
#include "analysis/results.h"

namespace Zelk::Analysis::Lint {
namespace {

/// How a command shows the result of its operation.
class Shown {
 public:
  Shown(const Workspace& workspace, Findings& findings)
      : workspace_(workspace),
        model_(workspace.ModelOf(Domain::kCli)),
        findings_(findings),
        results_(workspace) {}

  void Look(const Call& call) {
    const Document& document = model_.DocumentOf(call.command);
    const NodeId metadata = document.Find(model_[call.command].node, "node_metadata");
    const NodeId formatter = document.Find(metadata, "formatter");
    results_.Read(call.operation);
    const bool has_fields = LookAtOutputs(call.command);
    if (formatter == kNoNode) return;
    if (results_.IsVoid()) {
      findings_.Add(PlaceOf(model_, call.command, formatter),
                    {"the operation returns nothing, so there is nothing to show"});
      return;
    }
    const char* const word = kFormatterTypes.Find(document.String(formatter));
    const std::string text = word == nullptr ? "" : word;
    const bool has_columns = text == "TABLE" || text == "CSV";
    if (has_columns && !has_fields && results_.HasStructure()) {
      findings_.Add(PlaceOf(model_, call.command, formatter),
                    {"no output fields say what the columns of the " + text + " are"});
    }
  }

 private:
  /// Whether there are any output fields.
  bool LookAtOutputs(ElementId command) {
    bool has_fields = false;
    for (const ElementId output : model_.Children(command)) {
      if (model_[output].kind != ElementKind::kOutput) continue;
      const ElementIds fields = model_.Children(output);
      has_fields |= fields.begin() != fields.end();
      for (const Reference& reference : workspace_.GetReferences().From({Domain::kCli, output})) {
        const ElementId structure = reference.target.element;
        if (structure == kNoElement || results_.MayHave(structure)) continue;
        findings_.Add(PlaceOf(model_, output),
                      {"the result of the operation has no '" + std::string(reference.name) + "'"});
      }
    }
    return has_fields;
  }

  const Workspace& workspace_;
  const Model& model_;
  Findings& findings_;
  Results results_;
};

}  // namespace

void UnreachableOutput(const Workspace& workspace, Findings& findings) {
  Shown shown(workspace, findings);
  for (const Call& call : CallsOf(workspace)) {
    if (call.operation != kNoElement) shown.Look(call);
  }
}

}  // namespace Zelk::Analysis::Lint
