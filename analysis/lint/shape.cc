#include "analysis/lint/shape.h"

#include <algorithm>

namespace Zelk::Analysis::Lint {
namespace {

/// What follows in the object after the keys of `form`; null if nothing does.
const ObjectForm* NextForm(const Document& document, NodeId object, const ObjectForm& form) {
  if (form.decided_by == nullptr) return nullptr;
  const NodeId value = document.Find(object, form.decided_by);
  if (value == kNoNode) return nullptr;
  const std::string_view text = document.String(value);
  const char* const word = form.words == nullptr ? nullptr : form.words->Find(text);
  const std::string_view wanted = word == nullptr ? text : word;
  const auto variant = std::find_if(form.variants.begin(), form.variants.end(),
                                    [&](const Variant& row) { return row.text == wanted; });
  return variant == form.variants.end() ? nullptr : variant->object;
}

}  // namespace

std::vector<const KeyForm*> Shape::KeysOf(NodeId object) const {
  std::vector<const KeyForm*> keys;
  const ValueForm* const value = forms_[object];
  const ObjectForm* form = value == nullptr ? nullptr : value->object;
  for (; form != nullptr; form = NextForm(document_, object, *form)) {
    for (const KeyForm& key : form->keys) keys.push_back(&key);
  }
  return keys;
}

void Shape::ReadObject(NodeId object) {
  for (const KeyForm* key : KeysOf(object)) {
    const NodeId value = document_.Find(object, key->name);
    if (value != kNoNode) forms_[value] = &key->value;
  }
}

Shape::Shape(const Document& document, const Format& format)
    : document_(document), forms_(document.Size()) {
  forms_[kRootNode] = &format.root;
  // Values are after what they are in.
  for (NodeId node = kRootNode; node < document.Size(); ++node) {
    const ValueForm* const form = forms_[node];
    if (form == nullptr) continue;
    if (form->object != nullptr) ReadObject(node);
    if (form->each == nullptr) continue;
    for (NodeId child = document[node].first_child; child != kNoNode;
         child = document[child].next) {
      forms_[child] = form->each;
    }
  }
}

ElementRange ElementsOf(const Model& model, std::uint32_t source) {
  const auto begin_of = [&](std::uint32_t wanted) {
    ElementId low = 0;
    for (ElementId high = model.Size(); low < high;) {
      const ElementId middle = low + (high - low) / 2;
      if (model[middle].source < wanted) {
        low = middle + 1;
      } else {
        high = middle;
      }
    }
    return low;
  };
  return {begin_of(source), begin_of(source + 1)};
}

OpenFile::OpenFile(const Model& its_model, std::uint32_t its_source)
    : model(its_model),
      source(its_source),
      document(*model.Sources()[source].document),
      shape(document, FormatOf(model.GetDomain())),
      around(document.Size(), kNoElement) {
  const ElementRange range = ElementsOf(model, source);
  for (ElementId id = range.begin; id < range.end; ++id) {
    if (!model[id].is_implied) around[model[id].node] = id;
  }
  for (NodeId node = kRootNode + 1; node < document.Size(); ++node) {
    if (around[node] == kNoElement) around[node] = around[document[node].parent];
  }
}

Place OpenFile::PlaceOf(NodeId value) const {
  return {model.GetDomain(), source, around[value], value, document[value].begin};
}

Place OpenFile::PlaceOfKey(NodeId member) const {
  return {model.GetDomain(), source, around[member], member, document[member].key_begin};
}

bool IsSameValue(const Document& left, NodeId a, const Document& right, NodeId b) {
  const std::uint32_t left_end = left[a].end;
  const std::uint32_t right_end = right[b].end;
  const auto is_in = [](const Document& document, NodeId node, std::uint32_t end) {
    return node < document.Size() && document[node].begin < end;
  };
  // All that is in a value directly follows it.
  for (NodeId step = 0;; ++step) {
    const bool has_left = is_in(left, a + step, left_end);
    if (has_left != is_in(right, b + step, right_end)) return false;
    if (!has_left) return true;
    const Node& one = left[a + step];
    const Node& other = right[b + step];
    if (one.kind != other.kind || left.String(a + step) != right.String(b + step)) return false;
    if (one.kind == NodeKind::kOther &&
        left.Text().substr(one.begin, one.end - one.begin) !=
            right.Text().substr(other.begin, other.end - other.begin)) {
      return false;
    }
    if (step > 0 &&
        (left.Key(a + step) != right.Key(b + step) || one.parent - a != other.parent - b)) {
      return false;
    }
  }
}

}  // namespace Zelk::Analysis::Lint
