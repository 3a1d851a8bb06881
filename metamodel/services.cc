#include <zelk/provider/metadata/metamodel/services.h>

#include "common/queries/service_frame.h"

namespace Zelk::Provider::Metadata::Metamodel {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Activation = std::shared_ptr<::Zelk::Core::AsyncActivation>;

namespace ComponentSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListComponents());
}

void AsyncServiceImpl::Get(
    const std::string& component_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::ComponentData>>& result) {
  DeliverOrNotFound(result, container_->ComponentInfo(component_id),
                    MessageId::kMetamodelComponentNotFound, component_id);
}

void AsyncServiceImpl::Fingerprint(const std::string& component_id,
                                   const Activation& /*activation*/,
                                   const ::Zelk::AsyncResult<std::string>& result) {
  DeliverOrNotFound(result, container_->ComponentFingerprint(component_id),
                    MessageId::kMetamodelComponentNotFound, component_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace ComponentSvc

namespace EnumerationSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListEnumerations());
}

void AsyncServiceImpl::Get(
    const std::string& enumeration_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::EnumerationInfo>>&
        result) {
  DeliverOrNotFound(result, container_->EnumerationInfo(enumeration_id),
                    MessageId::kMetamodelEnumerationNotFound, enumeration_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace EnumerationSvc

namespace PackageSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListPackages());
}

void AsyncServiceImpl::Get(
    const std::string& package_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::PackageInfo>>& result) {
  DeliverOrNotFound(result, container_->PackageInfo(package_id),
                    MessageId::kMetamodelPackageNotFound, package_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace PackageSvc

namespace ResourceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::set<std::string>>& result) {
  result(container_->ListResources());
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace ResourceSvc

namespace Resource::ModelSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const std::string& resource_id, const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::set<std::string>>& result) {
  DeliverOrNotFound(result, container_->ListModels(resource_id),
                    MessageId::kMetamodelResourceNotFound, resource_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace Resource::ModelSvc

namespace ServiceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListServices());
}

void AsyncServiceImpl::Get(
    const std::string& service_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::ServiceInfo>>& result) {
  DeliverOrNotFound(result, container_->ServiceInfo(service_id),
                    MessageId::kMetamodelServiceNotFound, service_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace ServiceSvc

namespace Service::OperationSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const std::string& service_id, const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  DeliverOrNotFound(result, container_->ListOperations(service_id),
                    MessageId::kMetamodelServiceNotFound, service_id);
}

void AsyncServiceImpl::Get(
    const std::string& service_id, const std::string& operation_id,
    const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::OperationInfo>>& result) {
  DeliverOrNotFound(result, container_->OperationInfo(service_id, operation_id),
                    MessageId::kMetamodelOperationNotFound, service_id, operation_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace Service::OperationSvc

namespace Service::HiddenSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListHiddens());
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace Service::HiddenSvc

namespace StructureSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListStructures());
}

void AsyncServiceImpl::Get(
    const std::string& structure_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::StructureInfo>>& result) {
  DeliverOrNotFound(result, container_->StructureInfo(structure_id),
                    MessageId::kMetamodelStructureNotFound, structure_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace StructureSvc

namespace SourceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::Create(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>& spec,
    const Activation& /*activation*/, const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->CreateSource(source_id, spec), OnSuccess::kStaySilent);
}

void AsyncServiceImpl::Delete(const std::string& source_id, const Activation& /*activation*/,
                              const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->DeleteSource(source_id), OnSuccess::kStaySilent);
}

void AsyncServiceImpl::Get(
    const std::string& source_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::SourceSvc::Info>>&
        result) {
  DeliverOrNotFound(result, container_->SourcesInfo(source_id), MessageId::kMetamodelSourceNotFound,
                    source_id);
}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListSources());
}

void AsyncServiceImpl::Reload(const boost::optional<std::string>& source_id,
                              const Activation& /*activation*/,
                              const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->ReloadSource(source_id), OnSuccess::kStaySilent);
}

void AsyncServiceImpl::Fingerprint(const boost::optional<std::string>& source_id,
                                   const Activation& /*activation*/,
                                   const ::Zelk::AsyncResult<std::string>& result) {
  DeliverOrNotFound(result, container_->SourceFingerprint(source_id),
                    MessageId::kMetamodelSourceNotFound, source_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Metamodel
