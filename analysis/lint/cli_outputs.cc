#include <string>
#include <vector>

#include "analysis/call.h"
#include "analysis/format.h"
#include "analysis/lint/cli_rules.h"

namespace Zelk::Analysis::Lint {
namespace {

/// What the results of operations are made of.
class Results {
 public:
  Results(const Workspace& workspace, std::size_t commands)
      : model_(workspace.ModelOf(Domain::kMetamodel)),
        references_(workspace.GetReferences()),
        reached_in_(model_.Size()),
        visits_left_(1000000 + 100 * commands) {}

  /// Finds out what the result of the operation is made of.
  void Read(ElementId operation) {
    if (operation == operation_) return;
    operation_ = operation;
    ++round_;
    is_void_ = false;
    is_open_ = false;
    has_structure_ = false;
    for (const ElementId part : model_.Children(operation)) {
      if (model_[part].kind != ElementKind::kResult) continue;
      const Document& document = model_.DocumentOf(part);
      const NodeId type = document.Find(model_[part].node, "type");
      is_void_ = ReadType(document, type).word == "VOID";
      Enter(part);
    }
    while (!pending_.empty()) {
      const ElementId definition = pending_.back();
      pending_.pop_back();
      for (const ElementId part : model_.Children(definition)) {
        if (model_[part].kind == ElementKind::kField) Enter(part);
      }
    }
  }

  bool IsVoid() const { return is_void_; }

  bool HasStructure() const { return has_structure_; }

  /// True as well if it is not known what the result is made of.
  bool MayHave(ElementId structure) const { return is_open_ || reached_in_[structure] == round_; }

 private:
  void Enter(ElementId part) {
    // A file can be made for this to take for ever.
    if (visits_left_ == 0) {
      is_open_ = true;
      return;
    }
    --visits_left_;
    const Document& document = model_.DocumentOf(part);
    ForEachLevel(document, document.Find(model_[part].node, "type"), [&](const TypeLevel& level) {
      is_open_ |=
          level.word == "DYNAMIC_STRUCTURE" || level.word == "OPAQUE" || level.word == "ANY_ERROR";
    });
    for (const Reference& reference : references_.From({Domain::kMetamodel, part})) {
      const ElementId target = reference.target.element;
      is_open_ |= target == kNoElement;
      if (target == kNoElement || reached_in_[target] == round_) continue;
      reached_in_[target] = round_;
      has_structure_ |= model_[target].kind == ElementKind::kStructure;
      pending_.push_back(target);
    }
  }

  const Model& model_;
  const References& references_;
  /// The operation that was read last. It was the round_th.
  ElementId operation_ = kNoElement;
  std::size_t round_ = 0;
  /// In which round each definition was last found.
  std::vector<std::size_t> reached_in_;
  std::vector<ElementId> pending_;
  std::size_t visits_left_;
  bool is_void_ = false;
  bool is_open_ = false;
  bool has_structure_ = false;
};

/// How a command shows the result of its operation.
class Shown {
 public:
  Shown(const Workspace& workspace, std::size_t commands, Findings& findings)
      : workspace_(workspace),
        model_(workspace.ModelOf(Domain::kCli)),
        findings_(findings),
        results_(workspace, commands) {}

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
  const std::vector<Call> calls = CallsOf(workspace);
  Shown shown(workspace, calls.size(), findings);
  for (const Call& call : calls) {
    if (call.operation != kNoElement) shown.Look(call);
  }
}

}  // namespace Zelk::Analysis::Lint
