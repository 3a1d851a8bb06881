#include "analysis/diff/reach.h"

namespace Zelk::Analysis::Diff {
namespace {

constexpr std::uint8_t kIn = 1;
constexpr std::uint8_t kOut = 2;

bool IsOfType(const Reference& reference) {
  return reference.from.domain == Domain::kMetamodel &&
         (reference.kind == ReferenceKind::kType || reference.kind == ReferenceKind::kError);
}

/// Goes from what operations take and return to what that is made of.
class Reached {
 public:
  explicit Reached(const Workspace& version)
      : model_(version.ModelOf(Domain::kMetamodel)),
        references_(version.GetReferences()),
        directions_(model_.Size()) {}

  std::vector<std::uint8_t> Find() {
    for (const Reference& reference : references_.All()) {
      if (!IsOfType(reference) || reference.target.element == kNoElement) continue;
      const ElementKind from = model_[reference.from.element].kind;
      if (from == ElementKind::kField) continue;
      Add(reference.target.element, from == ElementKind::kParameter ? kIn : kOut);
    }
    while (!open_.empty()) {
      const ElementId id = open_.back();
      open_.pop_back();
      for (const ElementId part : model_.Children(id)) {
        if (model_[part].kind == ElementKind::kField) AddTypesOf(part, directions_[id]);
      }
    }
    return std::move(directions_);
  }

 private:
  void AddTypesOf(ElementId field, std::uint8_t directions) {
    for (const Reference& reference : references_.From({Domain::kMetamodel, field})) {
      if (reference.target.element != kNoElement) Add(reference.target.element, directions);
    }
  }

  void Add(ElementId id, std::uint8_t directions) {
    const auto all = static_cast<std::uint8_t>(directions_[id] | directions);
    if (all == directions_[id]) return;
    directions_[id] = all;
    open_.push_back(id);
  }

  const Model& model_;
  const References& references_;
  std::vector<std::uint8_t> directions_;
  std::vector<ElementId> open_;
};

}  // namespace

Reach::Reach(const Workspace& old_version, const Workspace& new_version)
    : old_directions_(Reached(old_version).Find()), new_directions_(Reached(new_version).Find()) {
  for (const Reference& reference : new_version.GetReferences().All()) {
    if (IsOfType(reference) && reference.target.element == kNoElement)
      missed_.insert(reference.name);
  }
}

Direction Reach::Of(Pair definition) const {
  unsigned directions = 0;
  if (definition.old_id != kNoElement) directions |= old_directions_[definition.old_id];
  if (definition.new_id != kNoElement) directions |= new_directions_[definition.new_id];
  if (directions == (kIn | kOut)) return Direction::kBoth;
  if (directions == 0) return Direction::kUnreached;
  return directions == kIn ? Direction::kInput : Direction::kOutput;
}

}  // namespace Zelk::Analysis::Diff
