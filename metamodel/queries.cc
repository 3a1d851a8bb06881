#include "common/queries/tree_queries.h"
#include "metamodel/json_metadata_container.h"
#include "metamodel/walkers.h"

// The queries of the container. They walk the sources in ascending id order, and at every level the
// records in ascending key order.

namespace Zelk::Provider::Metadata::Metamodel {

std::list<std::string> JsonMetadataContainer::ListComponents() const {
  return ComponentNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Metamodel::ComponentData> JsonMetadataContainer::ComponentInfo(
    const std::string& component_id) const {
  return FindComponent<Bindings::Metamodel::ComponentData>(sources_.Sources(), component_id);
}

std::string JsonMetadataContainer::ComponentFingerprint(const std::string& component_id) const {
  return FindComponentFingerprint(sources_.Sources(), component_id);
}

std::list<std::string> JsonMetadataContainer::ListPackages() const {
  return PackageNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Metamodel::PackageInfo> JsonMetadataContainer::PackageInfo(
    const std::string& package_id) const {
  return FindPackage<Bindings::Metamodel::PackageInfo>(sources_.Sources(), package_id);
}

std::list<std::string> JsonMetadataContainer::ListServices() const {
  return ServiceNames(sources_.Sources());
}

std::shared_ptr<const Bindings::Metamodel::ServiceInfo> JsonMetadataContainer::ServiceInfo(
    const std::string& service_id) const {
  return FindService<Bindings::Metamodel::ServiceInfo>(sources_.Sources(), service_id);
}

boost::optional<std::list<std::string>> JsonMetadataContainer::ListOperations(
    const std::string& service_id) const {
  return OperationNames(ServiceInfo(service_id));
}

std::shared_ptr<const Bindings::Metamodel::OperationInfo> JsonMetadataContainer::OperationInfo(
    const std::string& service_id, const std::string& operation_id) const {
  const auto service = ServiceInfo(service_id);
  if (!service) return nullptr;
  const auto operation = service->operations.find(operation_id);
  return operation == service->operations.end() ? nullptr : operation->second;
}

// Intended(hidden-is-empty): clients take the empty list to mean that no service is hidden.
std::list<std::string> JsonMetadataContainer::ListHiddens() const {
  return {};
}

// Intended(packages-before-services): the level of a definition counts before its source, here and
// in the next three queries.
std::list<std::string> JsonMetadataContainer::ListEnumerations() const {
  std::list<std::string> names;
  const auto& sources = sources_.Sources();
  const WalkEnumerations push{PushName{names}};
  WalkSources(sources, WalkComponents{WalkPackages{push}});
  WalkSources(sources, WalkComponents{WalkPackages{WalkServices{push}}});
  WalkSources(sources, WalkComponents{WalkPackages{WalkStructures{push}}});
  WalkSources(sources, WalkComponents{WalkPackages{WalkServices{WalkStructures{push}}}});
  return names;
}

std::shared_ptr<const Bindings::Metamodel::EnumerationInfo> JsonMetadataContainer::EnumerationInfo(
    const std::string& enumeration_id) const {
  std::shared_ptr<const Bindings::Metamodel::EnumerationInfo> enumeration;
  const SelectEnumeration select{enumeration_id, Assign{enumeration}};
  WalkSourcesByLevel(sources_.Sources(), NameMark(kEnumerationName, enumeration_id),
                     IfMayHold(NameMark(kPackageEnumerationName, enumeration_id),
                               WalkComponents{WalkPackages{select}}),
                     IfMayHold(NameMark(kServiceEnumerationName, enumeration_id),
                               WalkComponents{WalkPackages{WalkServices{select}}}),
                     IfMayHold(NameMark(kPackageStructureEnumerationName, enumeration_id),
                               WalkComponents{WalkPackages{WalkStructures{select}}}),
                     IfMayHold(NameMark(kServiceStructureEnumerationName, enumeration_id),
                               WalkComponents{WalkPackages{WalkServices{WalkStructures{select}}}}));
  return enumeration;
}

std::list<std::string> JsonMetadataContainer::ListStructures() const {
  std::list<std::string> names;
  const auto& sources = sources_.Sources();
  const WalkStructures push{PushName{names}};
  WalkSources(sources, WalkComponents{WalkPackages{push}});
  WalkSources(sources, WalkComponents{WalkPackages{WalkServices{push}}});
  return names;
}

std::shared_ptr<const Bindings::Metamodel::StructureInfo> JsonMetadataContainer::StructureInfo(
    const std::string& structure_id) const {
  std::shared_ptr<const Bindings::Metamodel::StructureInfo> structure;
  const SelectStructure select{structure_id, Assign{structure}};
  WalkSourcesByLevel(sources_.Sources(), NameMark(kStructureName, structure_id),
                     IfMayHold(NameMark(kPackageStructureName, structure_id),
                               WalkComponents{WalkPackages{select}}),
                     IfMayHold(NameMark(kServiceStructureName, structure_id),
                               WalkComponents{WalkPackages{WalkServices{select}}}));
  return structure;
}

std::set<std::string> JsonMetadataContainer::ListResources() const {
  std::set<std::string> resources;
  WalkSources(sources_.Sources(), WalkResources{PushSelf{resources}});
  return resources;
}

boost::optional<std::set<std::string>> JsonMetadataContainer::ListModels(
    const std::string& resource_id) const {
  boost::optional<std::set<std::string>> models;
  // Intended(models-of-last-source): every other lookup takes the first source.
  for (const auto& source : sources_.Sources()) {
    const auto resource = source.second->resources.find(resource_id);
    if (resource != source.second->resources.end()) models = resource->second;
  }
  return models;
}

}  // namespace Zelk::Provider::Metadata::Metamodel
