#include <map>
#include <string_view>
#include <utility>

#include "analysis/fates.h"

namespace Zelk::Analysis {
namespace {

/// A path and a name.
using Identity = std::pair<std::string_view, std::string_view>;

/// The identity of the namespace of that full name. The root has neither path nor name.
Identity IdentityOf(std::string_view full_name) {
  const std::size_t dot = full_name.rfind('.');
  if (dot == std::string_view::npos) return {std::string_view(), full_name};
  return {full_name.substr(0, dot), full_name.substr(dot + 1)};
}

/// Registers nodes as the library does. Every namespace is listed by its parent, which is implied
/// if it has not been described before.
class NodeRegistry {
 public:
  explicit NodeRegistry(const SourceElements& source) : source_(source) {}

  void Register(ElementId id) {
    if (Of(id).kind == ElementKind::kCommand) Replace(commands_, id);
    if (Of(id).kind == ElementKind::kNamespace) RegisterNamespace(id);
  }

  /// What was replaced more than once was replaced by the last one of all.
  void Finish() {
    for (ElementId id = source_.begin; id < source_.elements.size(); ++id) {
      Element& element = source_.elements[id];
      if (element.fate != Fate::kOverridden) continue;
      const Identity identity{element.path, element.name};
      element.by = (element.kind == ElementKind::kCommand ? commands_ : namespaces_).at(identity);
    }
  }

 private:
  using Nodes = std::map<Identity, ElementId>;

  Element& Of(ElementId id) { return source_.elements[id]; }

  void Replace(Nodes& nodes, ElementId id) {
    const auto [node, is_new] = nodes.try_emplace({Of(id).path, Of(id).name}, id);
    if (!is_new) Of(node->second).fate = Fate::kOverridden;
    node->second = id;
  }

  void RegisterNamespace(ElementId id) {
    while (id != kNoElement) {
      Replace(namespaces_, id);
      source_.order.push_back(id);
      const Identity around = IdentityOf(Of(id).path);
      const auto parent = namespaces_.find(around);
      const bool is_known = parent != namespaces_.end();
      const ElementId owner = is_known ? parent->second : Imply(around, id);
      Of(id).owner = owner;
      id = is_known ? kNoElement : owner;
    }
  }

  ElementId Imply(const Identity& identity, ElementId cause) {
    Element element;
    element.kind = ElementKind::kNamespace;
    element.is_implied = true;
    element.source = Of(cause).source;
    element.node = Of(cause).node;
    element.path = identity.first;
    element.name = identity.second;
    source_.elements.push_back(element);
    return static_cast<ElementId>(source_.elements.size() - 1);
  }

  const SourceElements& source_;
  Nodes namespaces_;
  Nodes commands_;
};

}  // namespace

void DecideCli(const SourceElements& source) {
  NodeRegistry nodes(source);
  const auto end = static_cast<ElementId>(source.elements.size());
  for (ElementId id = source.begin; id < end; ++id) {
    nodes.Register(id);
    if (source.elements[id].kind != ElementKind::kNamespace) source.order.push_back(id);
  }
  nodes.Finish();
}

}  // namespace Zelk::Analysis
