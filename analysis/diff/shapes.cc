#include "analysis/diff/shapes.h"

#include <string_view>

#include "analysis/diff/mixed.h"
#include "analysis/diff/texts.h"
#include "analysis/place.h"

namespace Zelk::Analysis::Diff {
std::uint64_t Shapes::OwnOf(ElementId id) const {
  auto shape = static_cast<std::uint64_t>(model_[id].kind);
  if (extent_ == Extent::kAll) shape = Mixed(shape, Analysis::TextOf(model_, id, "documentation"));
  return Mixed(shape, OwnText(model_, id));
}

void Shapes::Read() const {
  shapes_.assign(model_.Size(), 0);
  // Elements are after what they are in.
  for (ElementId id = model_.Size(); id-- > 0;) {
    const Element& element = model_[id];
    if (!IsKept(element)) continue;
    shapes_[id] = Mixed(shapes_[id], OwnOf(id));
    if (element.owner == kNoElement) continue;
    const bool is_whole = extent_ == Extent::kAll;
    const std::string_view name = is_whole ? element.name : model_.SimpleName(id);
    const std::uint64_t part = Mixed(shapes_[id], name);
    std::uint64_t& owner = shapes_[element.owner];
    owner = IsOrdered(element.kind) ? Mixed(owner, part) : owner + part;
  }
}

std::uint64_t Shapes::Of(ElementId id) const {
  if (shapes_.empty()) Read();
  return shapes_[id];
}

}  // namespace Zelk::Analysis::Diff
