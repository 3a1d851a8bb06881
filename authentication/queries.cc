#include "authentication/json_metadata_container.h"
#include "common/component_queries.h"

// The queries of the container. Sources are walked in ascending id order, and at every level the
// records in ascending key order.

namespace Zelk::Provider::Metadata::Authentication {

std::list<std::string> JsonMetadataContainer::ListComponents() const {
  return ComponentNames(sources_.Sources());
}

std::shared_ptr<const Bindings::ComponentData> JsonMetadataContainer::ComponentInfo(
    const std::string& component_id) const {
  return FindComponent<Bindings::ComponentData>(sources_.Sources(), component_id);
}

std::string JsonMetadataContainer::ComponentFingerprint(const std::string& component_id) const {
  return FindComponentFingerprint(sources_.Sources(), component_id);
}

std::list<std::string> JsonMetadataContainer::ListPackages() const {
  std::list<std::string> names;
  WalkSources(sources_.Sources(), WalkComponents{WalkPackages{PushKey{names}}});
  return names;
}

std::shared_ptr<const Bindings::PackageInfo> JsonMetadataContainer::PackageInfo(
    const std::string& package_id) const {
  std::shared_ptr<const Bindings::PackageInfo> package;
  WalkSources(sources_.Sources(), WalkComponents{SelectPackage{package_id, Assign{package}}});
  return package;
}

std::list<std::string> JsonMetadataContainer::ListServices() const {
  std::list<std::string> ids;
  WalkSources(sources_.Sources(), WalkComponents{WalkPackages{WalkServices{PushKey{ids}}}});
  return ids;
}

std::shared_ptr<const Bindings::ServiceInfo> JsonMetadataContainer::ServiceInfo(
    const std::string& service_id) const {
  std::shared_ptr<const Bindings::ServiceInfo> service;
  WalkSources(sources_.Sources(),
              WalkComponents{WalkPackages{SelectService{service_id, Assign{service}}}});
  return service;
}

boost::optional<std::list<std::string>> JsonMetadataContainer::ListOperations(
    const std::string& service_id) const {
  const auto service = ServiceInfo(service_id);
  if (!service) return boost::none;
  std::list<std::string> names;
  WalkOperations{PushKey{names}}(std::make_pair(service_id, service));
  return names;
}

std::shared_ptr<const Bindings::OperationInfo> JsonMetadataContainer::OperationInfo(
    const std::string& service_id, const std::string& operation_id) const {
  std::shared_ptr<const Bindings::OperationInfo> operation;
  // Intended: a service without the operation does not end the walk; several components may each
  // describe some operations of one service.
  const auto take_operation = [&](const std::shared_ptr<const Bindings::ServiceInfo>& service) {
    const auto found = service->operations.find(operation_id);
    if (found == service->operations.end()) return false;
    operation = found->second;
    return true;
  };
  WalkSources(sources_.Sources(),
              WalkComponents{WalkPackages{SelectService{service_id, take_operation}}});
  return operation;
}

}  // namespace Zelk::Provider::Metadata::Authentication
