#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/authentication/records.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>

// The services that answer for the Authentication domain, as a provider implements them. Each
// operation gets its own arguments, the activation that it is called for, and the result through
// which it answers. The order of the operations in a class is part of the binary interface.

namespace Com::Orvane::Zelk::Metadata::Authentication {

namespace ComponentSvc {

/// The components for which sources list schemes.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// The names of all components, once for each source that has them.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// The component with everything in it and its fingerprint, or NotFound.
  virtual void Get(const std::string& component_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const ComponentData>>& result) = 0;

  /// The fingerprint alone, for a client that kept the component; or NotFound.
  virtual void Fingerprint(const std::string& component_id,
                           const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace ComponentSvc

namespace PackageSvc {

/// The packages of all components.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// The names of all packages.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// The package with its schemes and services, or NotFound.
  virtual void Get(const std::string& package_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const PackageInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace PackageSvc

namespace ServiceSvc {

/// The services of all packages.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// The full ids of all services.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// The service with its schemes and operations, or NotFound.
  virtual void Get(const std::string& service_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const ServiceInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace ServiceSvc

namespace Service::OperationSvc {

/// The operations of one service.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// The names of the operations, or NotFound for an unknown service.
  virtual void List(const std::string& service_id,
                    const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// The operation with its schemes, or NotFound.
  virtual void Get(const std::string& service_id, const std::string& operation_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const OperationInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace Service::OperationSvc

namespace SourceSvc {

/// The sources that the domain is loaded from.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Registers a source and loads it.
  virtual void Create(const std::string& source_id,
                      const std::shared_ptr<const SourceSvc::CreateSpec>& spec,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Removes a source and all that came from it.
  virtual void Delete(const std::string& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// What the source was created with, or NotFound.
  virtual void Get(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const SourceSvc::Info>>& result) = 0;

  /// The ids of all sources.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Reads one source again, or all of them.
  virtual void Reload(const boost::optional<std::string>& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// The fingerprint of one source, or of all of them together.
  virtual void Fingerprint(const boost::optional<std::string>& source_id,
                           const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Authentication
