#include "authentication/json_metadata_container.h"
#include "common/queries/tree_queries.h"

// The queries of the container. They walk the sources in ascending id order, and at every level the
// records in ascending key order.

namespace Zelk::Provider::Metadata::Authentication {

std::list<std::string> JsonMetadataContainer::ListComponents() const {
  return ComponentNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Authentication::ComponentData> JsonMetadataContainer::ComponentInfo(
    const std::string& component_id) const {
  return FindComponent<Bindings::Authentication::ComponentData>(sources_.Sources(), component_id);
}

std::string JsonMetadataContainer::ComponentFingerprint(const std::string& component_id) const {
  return FindComponentFingerprint(sources_.Sources(), component_id);
}

std::list<std::string> JsonMetadataContainer::ListPackages() const {
  return PackageNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Authentication::PackageInfo> JsonMetadataContainer::PackageInfo(
    const std::string& package_id) const {
  return FindPackage<Bindings::Authentication::PackageInfo>(sources_.Sources(), package_id);
}

std::list<std::string> JsonMetadataContainer::ListServices() const {
  return ServiceNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Authentication::ServiceInfo> JsonMetadataContainer::ServiceInfo(
    const std::string& service_id) const {
  return FindService<Bindings::Authentication::ServiceInfo>(sources_.Sources(), service_id);
}

boost::optional<std::list<std::string>> JsonMetadataContainer::ListOperations(
    const std::string& service_id) const {
  return OperationNames(ServiceInfo(service_id));
}

std::shared_ptr<const Bindings::Authentication::OperationInfo> JsonMetadataContainer::OperationInfo(
    const std::string& service_id, const std::string& operation_id) const {
  std::shared_ptr<const Bindings::Authentication::OperationInfo> operation;
  // Intended(auth-operation-search): a service without the operation does not end the walk, because
  // several components may each describe some operations of one service.
  const auto take_operation =
      [&](const std::shared_ptr<const Bindings::Authentication::ServiceInfo>& service) {
        const auto found = service->operations.find(operation_id);
        if (found == service->operations.end()) return false;
        operation = found->second;
        return true;
      };
  WalkSources(sources_.Sources(),
              IfMayHold(NameMark(kServiceName, service_id),
                        WalkComponents{WalkPackages{SelectService{service_id, take_operation}}}));
  return operation;
}

}  // namespace Zelk::Provider::Metadata::Authentication
