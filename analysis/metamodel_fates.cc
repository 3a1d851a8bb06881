#include <algorithm>
#include <tuple>

#include "analysis/fates.h"

namespace Zelk::Analysis {
namespace {

/// Whether the library keeps one element of each name, in a map.
bool IsKeyed(ElementKind kind) {
  switch (kind) {
    case ElementKind::kPackage:
    case ElementKind::kService:
    case ElementKind::kOperation:
    case ElementKind::kStructure:
    case ElementKind::kEnumeration:
    case ElementKind::kConstant:
    case ElementKind::kAnnotation:
      return true;
    default:
      return false;
  }
}

}  // namespace

void DecideMetamodel(const SourceElements& source) {
  std::vector<Element>& elements = source.elements;
  std::vector<ElementId> keyed;
  for (ElementId id = source.begin; id < elements.size(); ++id) {
    source.order.push_back(id);
    if (IsKeyed(elements[id].kind)) keyed.push_back(id);
  }
  const auto key = [&](ElementId id) {
    return std::tie(elements[id].parent, elements[id].kind, elements[id].name);
  };
  std::stable_sort(keyed.begin(), keyed.end(),
                   [&](ElementId left, ElementId right) { return key(left) < key(right); });
  for (auto first = keyed.begin(); first != keyed.end();) {
    const auto next =
        std::find_if(first, keyed.end(), [&](ElementId id) { return key(id) != key(*first); });
    // The first of a name is kept, except of annotations.
    const bool is_first_kept = elements[*first].kind != ElementKind::kAnnotation;
    const ElementId kept = is_first_kept ? *first : *(next - 1);
    for (; first != next; ++first) {
      if (*first == kept) continue;
      elements[*first].fate = is_first_kept ? Fate::kDropped : Fate::kOverridden;
      elements[*first].by = kept;
    }
  }
}

}  // namespace Zelk::Analysis
