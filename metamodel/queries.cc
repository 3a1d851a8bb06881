#include "metamodel/json_metadata_container.h"
#include "metamodel/walkers.h"

// The queries of the container. Sources are walked in ascending id order, and at every level the
// records in ascending key order.

namespace Zelk::Provider::Metadata::Metamodel {
namespace {

using Table = SourceRegistry<SourceDomain>::Table;

/// Applies `walker` to each source until it reports a hit; true when one did.
template <typename Walker>
bool Walk(const Table& sources, const Walker& walker) {
  return boost::range::find_if(sources, walker) != sources.end();
}

/// Null when no source has the component.
const SourceData* FirstSourceWith(const Table& sources, const std::string& component_id) {
  const auto found = boost::range::find_if(sources, [&component_id](const auto& source) {
    return source.second->components.count(component_id) != 0;
  });
  return found == sources.end() ? nullptr : found->second.get();
}

}  // namespace

std::list<std::string> JsonMetadataContainer::ListComponents() const {
  std::list<std::string> names;
  Walk(sources_.Sources(), WalkComponents{PushName{names}});
  return names;
}

std::shared_ptr<const Bindings::ComponentData> JsonMetadataContainer::ComponentInfo(
    const std::string& component_id) const {
  const SourceData* source = FirstSourceWith(sources_.Sources(), component_id);
  if (source == nullptr) return nullptr;
  return std::make_shared<Bindings::ComponentData>(source->components.at(component_id),
                                                   source->component_fingerprint);
}

std::string JsonMetadataContainer::ComponentFingerprint(const std::string& component_id) const {
  const SourceData* source = FirstSourceWith(sources_.Sources(), component_id);
  return source == nullptr ? std::string() : source->component_fingerprint;
}

std::list<std::string> JsonMetadataContainer::ListPackages() const {
  std::list<std::string> names;
  Walk(sources_.Sources(), WalkComponents{WalkPackages{PushName{names}}});
  return names;
}

std::shared_ptr<const Bindings::PackageInfo> JsonMetadataContainer::PackageInfo(
    const std::string& package_id) const {
  std::shared_ptr<const Bindings::PackageInfo> package;
  Walk(sources_.Sources(), WalkComponents{SelectPackage{package_id, Assign{package}}});
  return package;
}

std::list<std::string> JsonMetadataContainer::ListServices() const {
  std::list<std::string> names;
  Walk(sources_.Sources(), WalkComponents{WalkPackages{WalkServices{PushName{names}}}});
  return names;
}

std::shared_ptr<const Bindings::ServiceInfo> JsonMetadataContainer::ServiceInfo(
    const std::string& service_id) const {
  std::shared_ptr<const Bindings::ServiceInfo> service;
  Walk(sources_.Sources(),
       WalkComponents{WalkPackages{SelectService{service_id, Assign{service}}}});
  return service;
}

boost::optional<std::list<std::string>> JsonMetadataContainer::ListOperations(
    const std::string& service_id) const {
  const auto service = ServiceInfo(service_id);
  if (!service) return boost::none;
  std::list<std::string> names;
  WalkOperations{PushName{names}}(std::make_pair(service_id, service));
  return names;
}

std::shared_ptr<const Bindings::OperationInfo> JsonMetadataContainer::OperationInfo(
    const std::string& service_id, const std::string& operation_id) const {
  const auto service = ServiceInfo(service_id);
  if (!service) return nullptr;
  const auto operation = service->operations.find(operation_id);
  return operation == service->operations.end() ? nullptr : operation->second;
}

// Intended: nothing is hidden from this list's clients; they read an empty one as just that.
std::list<std::string> JsonMetadataContainer::ListHiddens() const {
  return {};
}

std::list<std::string> JsonMetadataContainer::ListEnumerations() const {
  std::list<std::string> names;
  const auto& sources = sources_.Sources();
  const WalkEnumerations push{PushName{names}};
  Walk(sources, WalkComponents{WalkPackages{push}});
  Walk(sources, WalkComponents{WalkPackages{WalkServices{push}}});
  Walk(sources, WalkComponents{WalkPackages{WalkStructures{push}}});
  Walk(sources, WalkComponents{WalkPackages{WalkServices{WalkStructures{push}}}});
  return names;
}

std::shared_ptr<const Bindings::EnumerationInfo> JsonMetadataContainer::EnumerationInfo(
    const std::string& enumeration_id) const {
  std::shared_ptr<const Bindings::EnumerationInfo> enumeration;
  const auto& sources = sources_.Sources();
  const SelectEnumeration select{enumeration_id, Assign{enumeration}};
  static_cast<void>(
      Walk(sources, WalkComponents{WalkPackages{select}}) ||
      Walk(sources, WalkComponents{WalkPackages{WalkServices{select}}}) ||
      Walk(sources, WalkComponents{WalkPackages{WalkStructures{select}}}) ||
      Walk(sources, WalkComponents{WalkPackages{WalkServices{WalkStructures{select}}}}));
  return enumeration;
}

std::list<std::string> JsonMetadataContainer::ListStructures() const {
  std::list<std::string> names;
  const auto& sources = sources_.Sources();
  const WalkStructures push{PushName{names}};
  Walk(sources, WalkComponents{WalkPackages{push}});
  Walk(sources, WalkComponents{WalkPackages{WalkServices{push}}});
  return names;
}

std::shared_ptr<const Bindings::StructureInfo> JsonMetadataContainer::StructureInfo(
    const std::string& structure_id) const {
  std::shared_ptr<const Bindings::StructureInfo> structure;
  const auto& sources = sources_.Sources();
  const SelectStructure select{structure_id, Assign{structure}};
  static_cast<void>(Walk(sources, WalkComponents{WalkPackages{select}}) ||
                    Walk(sources, WalkComponents{WalkPackages{WalkServices{select}}}));
  return structure;
}

std::set<std::string> JsonMetadataContainer::ListResources() const {
  std::set<std::string> resources;
  Walk(sources_.Sources(), WalkResources{PushSelf{resources}});
  return resources;
}

boost::optional<std::set<std::string>> JsonMetadataContainer::ListModels(
    const std::string& resource_id) const {
  boost::optional<std::set<std::string>> models;
  // Intended: unlike every other lookup, the last source that names the resource answers.
  for (const auto& source : sources_.Sources()) {
    const auto resource = source.second->resources.find(resource_id);
    if (resource != source.second->resources.end()) models = resource->second;
  }
  return models;
}

}  // namespace Zelk::Provider::Metadata::Metamodel
