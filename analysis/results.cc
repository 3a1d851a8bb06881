#include "analysis/results.h"

namespace Zelk::Analysis {
namespace {

std::size_t CommandsOf(const Workspace& workspace) {
  const ElementIds commands = workspace.ModelOf(Domain::kCli).Found(ElementKind::kCommand);
  return static_cast<std::size_t>(commands.end() - commands.begin());
}

}  // namespace

Results::Results(const Workspace& workspace)
    : model_(workspace.ModelOf(Domain::kMetamodel)),
      references_(workspace.GetReferences()),
      reached_in_(model_.Size()),
      visits_left_(1000000 + 100 * CommandsOf(workspace)) {}

void Results::Read(ElementId operation) {
  if (operation == operation_) return;
  Read(operation, [](ElementId /*field*/) { return true; });
  operation_ = operation;
}

void Results::Read(ElementId operation, const std::function<bool(ElementId)>& is_shown) {
  operation_ = kNoElement;
  ++round_;
  is_void_ = false;
  is_open_ = false;
  has_structure_ = false;
  found_.clear();
  for (const ElementId part : model_.Children(operation)) {
    if (model_[part].kind != ElementKind::kResult) continue;
    const Document& document = model_.DocumentOf(part);
    const NodeId type = document.Find(model_[part].node, "type");
    is_void_ = ReadType(document, type).word == "VOID";
    Enter(part);
  }
  for (std::size_t next = 0; next < found_.size(); ++next) {
    for (const ElementId part : model_.Children(found_[next])) {
      if (model_[part].kind == ElementKind::kField && is_shown(part)) Enter(part);
    }
  }
}

void Results::Enter(ElementId part) {
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
    found_.push_back(target);
  }
}

}  // namespace Zelk::Analysis
