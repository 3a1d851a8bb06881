#include <zelk/provider/metadata/authentication/services.h>

#include "common/queries/service_frame.h"

namespace Zelk::Provider::Metadata::Authentication {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Activation = std::shared_ptr<::Zelk::Core::AsyncActivation>;

// Intended(auth-component-id): clients know an unknown component by the Metamodel message.
namespace ComponentSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListComponents());
}

void AsyncServiceImpl::Get(
    const std::string& component_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::ComponentData>>&
        result) {
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

namespace PackageSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListPackages());
}

void AsyncServiceImpl::Get(
    const std::string& package_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::PackageInfo>>&
        result) {
  DeliverOrNotFound(result, container_->PackageInfo(package_id),
                    MessageId::kAuthenticationPackageNotFound, package_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace PackageSvc

namespace ServiceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListServices());
}

void AsyncServiceImpl::Get(
    const std::string& service_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::ServiceInfo>>&
        result) {
  DeliverOrNotFound(result, container_->ServiceInfo(service_id),
                    MessageId::kAuthenticationServiceNotFound, service_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace ServiceSvc

namespace Service::OperationSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(const std::string& service_id, const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  DeliverOrNotFound(result, container_->ListOperations(service_id),
                    MessageId::kAuthenticationServiceNotFound, service_id);
}

void AsyncServiceImpl::Get(
    const std::string& service_id, const std::string& operation_id,
    const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::OperationInfo>>&
        result) {
  DeliverOrNotFound(result, container_->OperationInfo(service_id, operation_id),
                    MessageId::kAuthenticationOperationNotFound, service_id, operation_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace Service::OperationSvc

namespace SourceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::Create(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>& spec,
    const Activation& /*activation*/, const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->CreateSource(source_id, spec), OnSuccess::kStaySilent);
}

void AsyncServiceImpl::Delete(const std::string& source_id, const Activation& /*activation*/,
                              const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->DeleteSource(source_id), OnSuccess::kStaySilent);
}

void AsyncServiceImpl::Get(
    const std::string& source_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::SourceSvc::Info>>&
        result) {
  DeliverOrNotFound(result, container_->SourcesInfo(source_id),
                    MessageId::kAuthenticationSourceNotFound, source_id);
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
                    MessageId::kAuthenticationSourceNotFound, source_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Authentication
