#pragma once

#include <list>
#include <memory>
#include <string>

#include "common/walkers.h"

// The queries for components, alike in the domains whose sources register components by name.

namespace Zelk::Provider::Metadata {

/// Appends the key of every entry met.
class PushKey {
 public:
  explicit PushKey(std::list<std::string>& keys) : keys_(keys) {}

  template <typename Entry>
  bool operator()(const Entry& entry) const {
    keys_.push_back(entry.first);
    return false;
  }

 private:
  std::list<std::string>& keys_;
};

/// The names of the components of all sources, once for each source that has them.
template <typename Table>
std::list<std::string> ComponentNames(const Table& sources) {
  std::list<std::string> names;
  WalkSources(sources, WalkComponents{PushKey{names}});
  return names;
}

/// The first source that has the component; null when none has.
template <typename Table>
typename Table::mapped_type FirstSourceWith(const Table& sources, const std::string& component_id) {
  const auto found = boost::range::find_if(sources, [&component_id](const auto& source) {
    return source.second->components.count(component_id) != 0;
  });
  return found == sources.end() ? nullptr : found->second;
}

/// The component with its fingerprint, from the first source that has it; null when none has.
template <typename ComponentData, typename Table>
std::shared_ptr<const ComponentData> FindComponent(const Table& sources,
                                                   const std::string& component_id) {
  const auto source = FirstSourceWith(sources, component_id);
  if (!source) return nullptr;
  return std::make_shared<const ComponentData>(source->components.at(component_id),
                                               source->component_fingerprint);
}

/// The fingerprint alone; empty when no source has the component.
template <typename Table>
std::string FindComponentFingerprint(const Table& sources, const std::string& component_id) {
  const auto source = FirstSourceWith(sources, component_id);
  return source ? source->component_fingerprint : std::string();
}

}  // namespace Zelk::Provider::Metadata
