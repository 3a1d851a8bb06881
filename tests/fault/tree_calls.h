#pragma once

#include <string>

#include <boost/none.hpp>

#include "surface/sources.h"

// Every query and operation that two or all domains have, called for every key, known and unknown.
// A `visit` for queries gets a name and the query; one for operations gets a name, the service, the
// operation and its own arguments.

namespace Zelk::Testing {

// The ids of sources; long, so that a copy of one needs memory.
inline constexpr char kFirstSource[] = "the source that sorts first of all, by its id";
inline constexpr char kLastSource[] = "the source that sorts last of all, by its id";
inline constexpr char kNewSource[] = "the source that a test adds in between these";
inline constexpr char kUnknownKey[] = "a key that nothing at all is known by, but long";

inline constexpr const char* kSourceIds[] = {kFirstSource, kLastSource, kNewSource, kUnknownKey};

template <typename Container, typename Visit>
void EachSourceQuery(const Container& container, const Visit& visit) {
  visit("ListSources", [&] { return container.ListSources(); });
  const OptionalText all;
  visit("SourceFingerprint of all", [&] { return container.SourceFingerprint(all); });
  for (const std::string id : kSourceIds) {
    const OptionalText one(id);
    visit("SourcesInfo of " + id, [&] { return container.SourcesInfo(id); });
    visit("SourceFingerprint of " + id, [&] { return container.SourceFingerprint(one); });
  }
}

template <typename Service, typename Visit>
void EachSourceOperation(Service& service, const Visit& visit) {
  visit("SourceSvc::List", service, &Service::List);
  visit("SourceSvc::Fingerprint of all", service, &Service::Fingerprint, OptionalText());
  for (const std::string id : kSourceIds) {
    visit("SourceSvc::Get of " + id, service, &Service::Get, id);
    visit("SourceSvc::Fingerprint of " + id, service, &Service::Fingerprint, OptionalText(id));
  }
}

template <typename Keys, typename Container, typename Visit>
void EachTreeQuery(const Container& container, const Keys& keys, const Visit& visit) {
  visit("ListComponents", [&] { return container.ListComponents(); });
  visit("ListPackages", [&] { return container.ListPackages(); });
  visit("ListServices", [&] { return container.ListServices(); });
  for (const std::string key : keys) {
    visit("ComponentInfo of " + key, [&] { return container.ComponentInfo(key); });
    visit("ComponentFingerprint of " + key, [&] { return container.ComponentFingerprint(key); });
    visit("PackageInfo of " + key, [&] { return container.PackageInfo(key); });
    visit("ServiceInfo of " + key, [&] { return container.ServiceInfo(key); });
    visit("ListOperations of " + key, [&] { return container.ListOperations(key); });
    for (const std::string name : {"operation_of_the_service", kUnknownKey}) {
      visit("OperationInfo of " + key + " and " + name,
            [&] { return container.OperationInfo(key, name); });
    }
  }
}

/// Lists of a service that has no keys, and what it gets by key.
template <typename Service, typename Keys, typename Visit>
void EachListAndGet(const std::string& name, Service& service, const Keys& keys,
                    const Visit& visit) {
  visit(name + "::List", service, &Service::List);
  for (const std::string key : keys) visit(name + "::Get of " + key, service, &Service::Get, key);
}

template <typename ComponentService, typename PackageService, typename ServiceService,
          typename OperationService, typename Container, typename Keys, typename Visit>
void EachTreeOperation(const Container& container, const Keys& keys, const Visit& visit) {
  ComponentService components(container);
  PackageService packages(container);
  ServiceService services(container);
  OperationService operations(container);
  EachListAndGet("ComponentSvc", components, keys, visit);
  EachListAndGet("PackageSvc", packages, keys, visit);
  EachListAndGet("ServiceSvc", services, keys, visit);
  for (const std::string key : keys) {
    visit("ComponentSvc::Fingerprint of " + key, components, &ComponentService::Fingerprint, key);
    visit("OperationSvc::List of " + key, operations, &OperationService::List, key);
    for (const std::string name : {"operation_of_the_service", kUnknownKey}) {
      visit("OperationSvc::Get of " + key + " and " + name, operations, &OperationService::Get, key,
            name);
    }
  }
}

}  // namespace Zelk::Testing
