#include "analysis/fates.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

namespace Zelk::Analysis {
namespace {

/// Structures of packages are in front of those of services, whatever their source. So are
/// enumerations, and those of structures are after both.
int LevelOf(const std::vector<Element>& elements, const Element& element) {
  if (element.kind != ElementKind::kStructure && element.kind != ElementKind::kEnumeration)
    return 0;
  int level = 0;
  const Element* around = &elements[element.owner];
  if (around->kind == ElementKind::kStructure) {
    level = 2;
    around = &elements[around->owner];
  }
  return around->kind == ElementKind::kService ? level + 1 : level;
}

/// The names that walks take in ascending order, outermost first.
using Names = std::array<std::string_view, 6>;

Names NamesAround(const std::vector<Element>& elements, ElementId id) {
  Names names{};
  std::size_t count = 0;
  for (; id != kNoElement; id = OwnerAround(elements, id)) names.at(count++) = elements[id].name;
  std::reverse(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(count));
  return names;
}

/// Those of one kind and name together, and those that lookups prefer first.
bool IsBefore(const std::vector<Element>& elements, ElementId left, ElementId right) {
  const Element& a = elements[left];
  const Element& b = elements[right];
  if (a.kind != b.kind) return a.kind < b.kind;
  if (const int order = a.path.compare(b.path)) return order < 0;
  if (const int order = a.name.compare(b.name)) return order < 0;
  const int a_level = LevelOf(elements, a);
  const int b_level = LevelOf(elements, b);
  if (a_level != b_level) return a_level < b_level;
  if (a.source != b.source) return a.source < b.source;
  return NamesAround(elements, left) < NamesAround(elements, right);
}

/// The nearest element with lookups of its own, the element itself included.
ElementId LookedUpAs(const std::vector<Element>& elements, ElementId id) {
  while (id != kNoElement && !HasLookup(elements[id].kind)) id = OwnerAround(elements, id);
  return id;
}

}  // namespace

bool HasLookup(ElementKind kind) {
  switch (kind) {
    case ElementKind::kComponent:
    case ElementKind::kPackage:
    case ElementKind::kService:
    case ElementKind::kStructure:
    case ElementKind::kEnumeration:
    case ElementKind::kPackageList:
    case ElementKind::kServiceList:
    case ElementKind::kOperationList:
    case ElementKind::kNamespace:
    case ElementKind::kCommand:
      return true;
    default:
      return false;
  }
}

ElementId OwnerAround(const std::vector<Element>& elements, ElementId id) {
  // Namespaces are found by their names alone, whatever becomes of the one that lists them.
  return elements[id].kind == ElementKind::kNamespace ? kNoElement : elements[id].owner;
}

void LoseParts(std::vector<Element>& elements) {
  for (ElementId id = 0; id < elements.size(); ++id) {
    ElementId cause = kNoElement;
    for (ElementId around = OwnerAround(elements, id); around != kNoElement;
         around = OwnerAround(elements, around)) {
      if (!IsKept(elements[around])) cause = around;
    }
    if (cause == kNoElement) continue;
    elements[id].fate = Fate::kLost;
    elements[id].by = cause;
  }
}

std::vector<ElementId> DecideShadows(std::vector<Element>& elements) {
  std::vector<ElementId> kept;
  for (ElementId id = 0; id < elements.size(); ++id) {
    if (IsKept(elements[id]) && HasLookup(elements[id].kind)) kept.push_back(id);
  }
  std::sort(kept.begin(), kept.end(),
            [&](ElementId left, ElementId right) { return IsBefore(elements, left, right); });
  std::vector<ElementId> found;
  for (const ElementId id : kept) {
    Element& element = elements[id];
    if (found.empty() || KeyOf(elements[found.back()]) != KeyOf(element)) {
      found.push_back(id);
    } else {
      element.fate = Fate::kShadowed;
      element.by = found.back();
    }
  }
  for (ElementId id = 0; id < elements.size(); ++id) {
    Element& element = elements[id];
    // Schemes are answered by the lists that name them.
    if (!IsKept(element) || element.kind == ElementKind::kScheme) continue;
    const ElementId around = LookedUpAs(elements, id);
    if (around == id || elements[around].fate != Fate::kShadowed) continue;
    element.fate = Fate::kShadowed;
    element.by = elements[around].by;
  }
  return found;
}

}  // namespace Zelk::Analysis
