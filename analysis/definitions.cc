#include "analysis/definitions.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace Zelk::Analysis {
namespace {

bool HasContent(ElementKind kind) {
  return kind == ElementKind::kParameter || kind == ElementKind::kField ||
         kind == ElementKind::kResult;
}

bool IsPart(ElementKind kind) {
  return kind == ElementKind::kOperation || kind == ElementKind::kParameter ||
         kind == ElementKind::kField;
}

bool IsRoot(ElementKind kind) {
  return kind == ElementKind::kComponent || kind == ElementKind::kPackage ||
         kind == ElementKind::kService;
}

/// Whether `name` is `root`, or begins with it and a full stop.
bool IsWithin(std::string_view name, std::string_view root) {
  return name.substr(0, root.size()) == root &&
         (name.size() == root.size() || name[root.size()] == '.');
}

/// The order of names in which whatever begins with a name and a full stop comes right after it.
bool IsBefore(std::string_view left, std::string_view right) {
  const auto rank = [](char byte) {
    return byte == '.' ? -1 : static_cast<int>(static_cast<unsigned char>(byte));
  };
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(),
                                      [&](char a, char b) { return rank(a) < rank(b); });
}

}  // namespace

Definitions::Definitions(const Model& metamodel) : model_(metamodel) {
  IndexParts();
  IndexRoots();
  ReadContents();
}

void Definitions::IndexParts() {
  for (ElementId id = 0; id < model_.Size(); ++id) {
    if (IsPart(model_[id].kind) && model_[id].fate == Fate::kFound) parts_.push_back(id);
  }
  std::sort(parts_.begin(), parts_.end(), [&](ElementId left, ElementId right) {
    const Element& a = model_[left];
    const Element& b = model_[right];
    return std::tie(a.owner, a.kind, a.name, left) < std::tie(b.owner, b.kind, b.name, right);
  });
}

void Definitions::IndexRoots() {
  for (ElementId id = 0; id < model_.Size(); ++id) {
    if (IsRoot(model_[id].kind)) roots_.push_back(model_[id].name);
  }
  std::sort(roots_.begin(), roots_.end(), IsBefore);
  // The outermost ones are enough.
  auto last = roots_.begin();
  for (const std::string_view root : roots_) {
    if (last == roots_.begin() || !IsWithin(root, *std::prev(last))) *last++ = root;
  }
  roots_.erase(last, roots_.end());
}

void Definitions::ReadContents() {
  contents_.resize(model_.Size());
  for (ElementId id = 0; id < model_.Size(); ++id) {
    if (!HasContent(model_[id].kind)) continue;
    const Document& document = model_.DocumentOf(id);
    Content& content = contents_[id];
    content.shape = ShapeOf(document, document.Find(model_[id].node, "type"));
    const TypeLevel inner = ReadType(document, content.shape.inner);
    if (inner.form != TypeForm::kUserDefined) continue;
    content.definition = Definition(inner.wanted, document.String(inner.name));
  }
}

ElementId Definitions::Part(ElementId owner, ElementKind kind, std::string_view name) const {
  const auto key = std::tie(owner, kind, name);
  const auto key_of = [&](ElementId id) {
    return std::tie(model_[id].owner, model_[id].kind, model_[id].name);
  };
  const auto found =
      std::lower_bound(parts_.begin(), parts_.end(), key,
                       [&](ElementId id, const auto& wanted) { return key_of(id) < wanted; });
  return found != parts_.end() && key_of(*found) == key ? *found : kNoElement;
}

ElementId Definitions::Definition(ElementKind wanted, std::string_view name) const {
  const bool is_enumeration = wanted == ElementKind::kEnumeration;
  const ElementKind first = is_enumeration ? ElementKind::kEnumeration : ElementKind::kStructure;
  const ElementKind second = is_enumeration ? ElementKind::kStructure : ElementKind::kEnumeration;
  const ElementId found = model_.Find(first, name);
  return found != kNoElement ? found : model_.Find(second, name);
}

FieldPath::End Definitions::EndAt(ElementId id) const {
  const Content& content = contents_[id];
  const bool is_many =
      content.shape.arity != Arity::kOne && content.shape.arity != Arity::kOptional;
  if (is_many) return FieldPath::kNoStructure;
  if (content.definition != kNoElement) {
    const bool is_structure = model_[content.definition].kind == ElementKind::kStructure;
    return is_structure ? FieldPath::kMissing : FieldPath::kNoStructure;
  }
  const TypeLevel inner = ReadType(model_.DocumentOf(id), content.shape.inner);
  const bool is_open = inner.form == TypeForm::kUserDefined || inner.word == "DYNAMIC_STRUCTURE" ||
                       inner.word == "OPAQUE";
  return is_open ? FieldPath::kUnknown : FieldPath::kNoStructure;
}

FieldPath Definitions::Follow(ElementId operation, std::string_view path) const {
  FieldPath result;
  ElementId owner = operation;
  ElementKind kind = ElementKind::kParameter;
  result.end = FieldPath::kMissing;
  while (true) {
    const std::size_t dot = path.find('.');
    result.part = path.substr(0, dot);
    if (result.end != FieldPath::kMissing) return result;
    const ElementId found = Part(owner, kind, result.part);
    if (found == kNoElement) return result;
    result.found.push_back(found);
    if (dot == std::string_view::npos) break;
    path.remove_prefix(dot + 1);
    result.end = EndAt(found);
    owner = contents_[found].definition;
    kind = ElementKind::kField;
  }
  result.end = FieldPath::kComplete;
  result.part = {};
  return result;
}

bool Definitions::IsLoaded(std::string_view name) const {
  const auto next = std::upper_bound(roots_.begin(), roots_.end(), name, IsBefore);
  return next != roots_.begin() && IsWithin(name, *std::prev(next));
}

}  // namespace Zelk::Analysis
