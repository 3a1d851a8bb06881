#include "analysis/place.h"

#include <algorithm>

#include "analysis/format.h"

namespace Zelk::Analysis {

Place PlaceOf(const Model& model, ElementId element, NodeId value) {
  const Document& document = model.DocumentOf(element);
  return {model.GetDomain(), model[element].source, element, value, document[value].begin};
}

Place PlaceOfKey(const Model& model, ElementId element, NodeId member) {
  Place place = PlaceOf(model, element, member);
  place.offset = model.DocumentOf(element)[member].key_begin;
  return place;
}

Place PlaceOf(const Model& model, ElementId id) {
  const Element& element = model[id];
  const char* const key = NameKey(element.kind);
  const bool has_key = key != nullptr && !element.is_implied;
  const NodeId name = has_key ? model.DocumentOf(id).Find(element.node, key) : kNoNode;
  return name == kNoNode ? PlaceOfKey(model, id, element.node) : PlaceOf(model, id, name);
}

std::string Shortened(std::string_view text, std::size_t most) {
  if (text.size() <= most) return std::string(text);
  const std::size_t end = most / 2;
  return std::string(text.substr(0, end)) + "..." + std::string(text.substr(text.size() - end));
}

std::string Called(const Model& model, ElementId id) {
  const Element& element = model[id];
  const std::string name = model.FullName(id);
  if (element.kind == ElementKind::kNamespace && name.empty()) return "the root namespace";
  std::string kind = Word(element.kind);
  std::replace(kind.begin(), kind.end(), '-', ' ');
  return "the " + kind + " '" + Shortened(name) + "'";
}

std::string PathOf(const Workspace& workspace, const Place& place) {
  if (place.element == kNoElement) return FormatOf(place.domain).root_key;
  return workspace.ModelOf(place.domain).Path(place.element);
}

const Document& DocumentOf(const Workspace& workspace, const Place& place) {
  return *workspace.ModelOf(place.domain).Sources()[place.source].document;
}

std::string_view TextOf(const Model& model, ElementId id, const char* key) {
  const Document& document = model.DocumentOf(id);
  const NodeId node = document.Find(model[id].node, key);
  return node == kNoNode ? std::string_view() : document.String(node);
}

}  // namespace Zelk::Analysis
