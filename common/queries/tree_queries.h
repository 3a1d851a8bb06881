#pragma once

#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>

#include "common/queries/walkers.h"

// The queries over the tree of components, packages, services and operations, for the domains that
// have it. Walk order: sources, and at each level the records, in ascending key order.

namespace Zelk::Provider::Metadata {

/// The kinds of names of the tree in a filter; domains add their own.
enum NameKind : unsigned { kPackageName, kServiceName, kFirstNameOfDomain };

/// Appends the marks of the names in the tree of a source, which is an entry of a table.
template <typename Entry>
void PushTreeNames(const Entry& source, std::vector<NameMark>& names) {
  WalkComponents{WalkPackages{PushMark{kPackageName, names}}}(source);
  WalkComponents{WalkPackages{WalkServices{PushMark{kServiceName, names}}}}(source);
}

/// Appends the key of every entry in the walk; the key of a record is its name.
/// Intended(repeated-names): a name that several sources have is listed once for each of them.
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

template <typename Table>
std::list<std::string> ComponentNames(const Table& sources) {
  std::list<std::string> names;
  WalkSources(sources, WalkComponents{PushKey{names}});
  return names;
}

template <typename Table>
std::list<std::string> PackageNames(const Table& sources) {
  std::list<std::string> names;
  WalkSources(sources, WalkComponents{WalkPackages{PushKey{names}}});
  return names;
}

template <typename Table>
std::list<std::string> ServiceNames(const Table& sources) {
  std::list<std::string> names;
  WalkSources(sources, WalkComponents{WalkPackages{WalkServices{PushKey{names}}}});
  return names;
}

/// Returns the first source that has the component, or null if none has it.
template <typename Table>
typename Table::mapped_type FirstSourceWith(const Table& sources, const std::string& component_id) {
  const auto found = boost::range::find_if(sources, [&component_id](const auto& source) {
    return source.second->components.count(component_id) != 0;
  });
  return found == sources.end() ? nullptr : found->second;
}

/// Returns the component and its fingerprint from the first source that has it, or null if none has
/// it.
template <typename ComponentData, typename Table>
std::shared_ptr<const ComponentData> FindComponent(const Table& sources,
                                                   const std::string& component_id) {
  const auto source = FirstSourceWith(sources, component_id);
  if (!source) return nullptr;
  return std::make_shared<const ComponentData>(source->components.at(component_id),
                                               source->component_fingerprint);
}

/// Returns only the fingerprint; empty if no source has the component.
template <typename Table>
std::string FindComponentFingerprint(const Table& sources, const std::string& component_id) {
  const auto source = FirstSourceWith(sources, component_id);
  return source ? source->component_fingerprint : std::string();
}

/// Returns the first package of that name, or null if there is none.
template <typename PackageInfo, typename Table>
std::shared_ptr<const PackageInfo> FindPackage(const Table& sources,
                                               const std::string& package_id) {
  std::shared_ptr<const PackageInfo> package;
  WalkSources(sources, IfMayHold(NameMark(kPackageName, package_id),
                                 WalkComponents{SelectPackage{package_id, Assign{package}}}));
  return package;
}

/// Returns the first service of that id, or null if there is none.
template <typename ServiceInfo, typename Table>
std::shared_ptr<const ServiceInfo> FindService(const Table& sources,
                                               const std::string& service_id) {
  std::shared_ptr<const ServiceInfo> service;
  WalkSources(sources,
              IfMayHold(NameMark(kServiceName, service_id),
                        WalkComponents{WalkPackages{SelectService{service_id, Assign{service}}}}));
  return service;
}

/// Returns the names of the service's operations; empty optional for a null service.
template <typename ServiceInfo>
boost::optional<std::list<std::string>> OperationNames(
    const std::shared_ptr<const ServiceInfo>& service) {
  if (!service) return boost::none;
  std::list<std::string> names;
  WalkOperations{PushKey{names}}(std::pair(std::string(), service));
  return names;
}

}  // namespace Zelk::Provider::Metadata
