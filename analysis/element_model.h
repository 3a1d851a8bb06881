#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/document.h"
#include "analysis/element.h"

// Every element of the files of one domain, with its place and with what the library makes of it.
// To look at the fields of all structures that the library answers:
//
//   const Model model(Domain::kMetamodel, {{"a", std::make_shared<const Document>(text)}});
//   for (ElementId id = 0; id < model.Size(); ++id) {
//     const Element& element = model[id];
//     if (element.kind != ElementKind::kField || element.fate != Fate::kFound) continue;
//     const Document& document = model.DocumentOf(id);
//     const NodeId type = document.Find(element.node, "type");
//     ... document.Pointer(element.node), document.PositionAt(document[type].begin) ...
//   }
//
// What an element has besides its name is read from its node, under the keys that format.h and the
// tables beside it list. Types are not elements: walk their nodes with a stack, since they nest to
// any depth.

namespace Zelk::Analysis {

/// A file under the id that it is loaded with.
struct Source {
  std::string id;
  std::shared_ptr<const Document> document;
};

/// Several element ids, one after another in memory.
class ElementIds {
 public:
  ElementIds(const ElementId* begin, const ElementId* end) : begin_(begin), end_(end) {}

  const ElementId* begin() const { return begin_; }

  const ElementId* end() const { return end_; }

 private:
  const ElementId* begin_;
  const ElementId* end_;
};

/// The sources of one domain together. A source that does not load has no elements in it.
class Model {
 public:
  /// The order of the sources does not matter; their ids must differ.
  Model(Domain domain, std::vector<Source> sources);

  Domain GetDomain() const { return domain_; }

  /// In ascending id order, as the library walks them.
  const std::vector<Source>& Sources() const { return sources_; }

  /// Whether the library accepts the source at the position.
  bool Loads(std::size_t source) const { return loads_[source]; }

  /// Elements of one source are together and in document order, except that keys are in the order
  /// of the format and that implied elements come last.
  const Element& operator[](ElementId id) const { return elements_[id]; }

  /// The number of elements. Their ids are 0 up to it.
  ElementId Size() const { return static_cast<ElementId>(elements_.size()); }

  const Document& DocumentOf(ElementId id) const {
    return *sources_[elements_[id].source].document;
  }

  /// The elements that have this one as their owner, whatever their fate, in the order in which the
  /// library takes them. The root namespace is in its own.
  ElementIds Children(ElementId owner) const;

  /// The element of the kind that a lookup of the name returns, or kNoElement.
  /// For kinds with a name of their own: components, packages, services, structures, enumerations,
  /// the lists of Authentication, and with their path namespaces and commands.
  ElementId Find(ElementKind kind, std::string_view name, std::string_view path = {}) const;

  /// The elements of the kind that lookups return, in the order of their paths and names.
  ElementIds Found(ElementKind kind) const;

  /// The name with all that it lies in, with full stops between.
  std::string FullName(ElementId id) const;

  /// The name without what it lies in.
  std::string_view SimpleName(ElementId id) const;

  /// Names the element without any position, such as "metamodel/component:c/package:c.p". It stays
  /// the same when files are re-indented, reordered or moved.
  std::string Path(ElementId id) const;

 private:
  /// Appends the elements of a source. Those that they refer to are counted from the first of them.
  void Append(std::uint32_t source, const std::deque<Element>& elements);
  void IndexChildren(const std::vector<ElementId>& order);
  /// The element, what it is in, and so on outwards.
  std::vector<ElementId> Around(ElementId id) const;

  Domain domain_;
  std::vector<Source> sources_;
  std::vector<bool> loads_;
  std::vector<Element> elements_;
  /// The children of all owners, those of `owner` from child_begin_[owner] up to the next one's.
  std::vector<ElementId> children_;
  std::vector<std::size_t> child_begin_;
  /// What lookups find, in the order of their keys.
  std::vector<ElementId> found_;
};

}  // namespace Zelk::Analysis
