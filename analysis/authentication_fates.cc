#include <map>
#include <string_view>

#include "analysis/fates.h"
#include "analysis/format.h"

namespace Zelk::Analysis {
namespace {

using ByName = std::map<std::string_view, ElementId>;

void SetFate(Element& element, Fate fate, ElementId by) {
  element.fate = fate;
  element.by = by;
}

/// Joins the lists of one component: operations into their services, services into their packages.
/// Services and packages that are not listed are implied by what is in them.
class ComponentLists {
 public:
  ComponentLists(std::vector<Element>& elements, ElementId component, ElementId end)
      : elements_(elements), component_(component), begin_(component + 1), end_(end) {}

  void Join() {
    SetTargets();
    JoinOperations();
    JoinServices();
  }

 private:
  /// Calls `take` with each element of the kind that is directly in the component.
  template <typename Take>
  void Each(ElementKind kind, const Take& take) {
    for (ElementId id = begin_; id < end_; ++id) {
      if (elements_[id].kind == kind) take(id);
    }
  }

  void SetTargets() {
    const ByName schemes = KeepLast(ElementKind::kScheme);
    Each(ElementKind::kEntry,
         [&](ElementId id) { elements_[id].target = schemes.at(elements_[id].name); });
  }

  /// The elements of the kind that are kept.
  ByName KeepLast(ElementKind kind) {
    ByName kept;
    Each(kind, [&](ElementId id) { kept[elements_[id].name] = id; });
    Each(kind, [&](ElementId id) {
      const ElementId last = kept.at(elements_[id].name);
      if (last != id) SetFate(elements_[id], Fate::kOverridden, last);
    });
    return kept;
  }

  void JoinOperations() {
    Each(ElementKind::kServiceList, [&](ElementId id) { KeepFirst(services_, id); });
    ByName unlisted;
    Each(ElementKind::kOperationList, [&](ElementId id) {
      const std::string_view service = OwnerOf(elements_[id].name);
      if (services_.count(service) == 0) unlisted.emplace(service, id);
    });
    for (const auto& [service, operation] : unlisted) {
      // The first one without a package ends it.
      if (OwnerOf(service).empty()) break;
      services_.emplace(service, Imply(ElementKind::kServiceList, service, operation));
    }
    ByName operations;
    Each(ElementKind::kOperationList, [&](ElementId id) {
      const auto service = services_.find(OwnerOf(elements_[id].name));
      if (service == services_.end()) {
        SetFate(elements_[id], Fate::kIgnored, kNoElement);
      } else {
        elements_[id].owner = service->second;
        KeepFirst(operations, id);
      }
    });
  }

  void KeepFirst(ByName& kept, ElementId id) {
    const ElementId first = kept.emplace(elements_[id].name, id).first->second;
    if (first != id) SetFate(elements_[id], Fate::kDropped, first);
  }

  void JoinServices() {
    // The first of a name takes the services, but the last one is kept.
    ByName packages;
    Each(ElementKind::kPackageList,
         [&](ElementId id) { packages.emplace(elements_[id].name, id); });
    KeepLast(ElementKind::kPackageList);
    const auto join = [&](ElementId id) {
      const std::string_view name = OwnerOf(elements_[id].name);
      auto package = packages.find(name);
      if (package == packages.end()) {
        package = packages.emplace(name, Imply(ElementKind::kPackageList, name, id)).first;
      }
      elements_[id].owner = package->second;
    };
    Each(ElementKind::kServiceList, join);
    for (const auto& [name, id] : services_) {
      if (elements_[id].is_implied) join(id);
    }
  }

  ElementId Imply(ElementKind kind, std::string_view name, ElementId cause) {
    Element element;
    element.kind = kind;
    element.is_implied = true;
    element.source = elements_[cause].source;
    element.node = elements_[cause].node;
    element.parent = component_;
    element.owner = component_;
    element.name = name;
    elements_.push_back(element);
    return static_cast<ElementId>(elements_.size() - 1);
  }

  std::vector<Element>& elements_;
  ElementId component_;
  ElementId begin_;
  ElementId end_;
  ByName services_;
};

}  // namespace

void DecideAuthentication(const SourceElements& source) {
  std::vector<Element>& elements = source.elements;
  const auto end = static_cast<ElementId>(elements.size());
  ElementId before = kNoElement;
  for (ElementId id = source.begin; id < end;) {
    // Components are one after another, with all that is in them.
    ElementId next = id + 1;
    while (next < end && elements[next].kind != ElementKind::kComponent) ++next;
    if (elements[id].fate != Fate::kIgnored) {
      if (before != kNoElement && elements[before].name == elements[id].name) {
        SetFate(elements[before], Fate::kOverridden, id);
      }
      before = id;
      ComponentLists(elements, id, next).Join();
    }
    id = next;
  }
  for (ElementId id = source.begin; id < elements.size(); ++id) source.order.push_back(id);
}

}  // namespace Zelk::Analysis
