#include "analysis/diff/shapes.h"

#include <initializer_list>
#include <string>
#include <string_view>

#include "analysis/diff/mixed.h"
#include "analysis/diff/texts.h"
#include "analysis/diff/types.h"
#include "analysis/format.h"
#include "analysis/place.h"
#include "analysis/types.h"

namespace Zelk::Analysis::Diff {
namespace {

/// Whether the library keeps elements of the kind in the order in which they are written.
bool IsOrdered(ElementKind kind) {
  return kind == ElementKind::kParameter || kind == ElementKind::kField ||
         kind == ElementKind::kValue || kind == ElementKind::kError;
}

}  // namespace

std::uint64_t Shapes::OwnOf(ElementId id) const {
  const Element& element = model_[id];
  const Document& document = model_.DocumentOf(id);
  auto shape = static_cast<std::uint64_t>(element.kind);
  if (extent_ == Extent::kAll) shape = Mixed(shape, Analysis::TextOf(model_, id, "documentation"));
  const NodeId type = document.Find(element.node, "type");
  switch (element.kind) {
    case ElementKind::kParameter:
    case ElementKind::kField:
    case ElementKind::kResult:
      ForEachLevel(document, type, [&](const TypeLevel& level) {
        shape = Mixed(shape + level.depth, level.word);
        if (level.form != TypeForm::kUserDefined) return;
        shape = Mixed(Mixed(shape, KindText(document, level)), document.String(level.name));
      });
      return shape;
    case ElementKind::kConstant:
      return Mixed(Mixed(shape, ConstantType(model_, id)), ConstantValue(model_, id));
    case ElementKind::kStructure:
      return Mixed(shape, kStructureTypes.Find(document.String(type)));
    case ElementKind::kAnnotation:
      return Mixed(shape, AnnotationText(model_, id));
    default:
      return shape;
  }
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
