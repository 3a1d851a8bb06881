#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>

// The interfaces of the Metamodel domain's services, as a provider implements them. Each operation
// gets its own arguments, the activation that it is called for, and the result that it calls with
// the answer or an error. "or NotFound" means: delivers the error NotFound if the id is unknown.
// The order of the operations in a class is part of the binary interface.

namespace Com::Orvane::Zelk::Metadata::Metamodel {

namespace ComponentSvc {

/// The components that the loaded sources describe.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of all components, once for each source that has them.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the component, with all that it contains, and its fingerprint, or NotFound.
  virtual void Get(const std::string& component_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const ComponentData>>& result) = 0;

  /// Delivers only the fingerprint of the component, or NotFound. A client that has the component
  /// compares it to see whether its copy is up to date.
  virtual void Fingerprint(const std::string& component_id,
                           const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace ComponentSvc

namespace EnumerationSvc {

/// The enumerations, wherever they are defined.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of all enumerations.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the enumeration, or NotFound.
  virtual void Get(const std::string& enumeration_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const EnumerationInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace EnumerationSvc

namespace PackageSvc {

/// The packages of all components.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of all packages.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the package with all that it contains, or NotFound.
  virtual void Get(const std::string& package_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const PackageInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace PackageSvc

namespace ResourceSvc {

/// The types of the resources that identifiers refer to.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the resource types of all sources, each once.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::set<std::string>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace ResourceSvc

namespace Resource::ModelSvc {

/// The structures that model a resource.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of the structures, or NotFound.
  virtual void List(const std::string& resource_id,
                    const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::set<std::string>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace Resource::ModelSvc

namespace ServiceSvc {

/// The services of all packages.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of all services.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the service with all that it contains, or NotFound.
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
  /// Delivers the names of the operations, or NotFound.
  virtual void List(const std::string& service_id,
                    const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the operation. NotFound if the service or its operation is unknown.
  virtual void Get(const std::string& service_id, const std::string& operation_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const OperationInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace Service::OperationSvc

namespace Service::HiddenSvc {

/// The services that clients should not show.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of the hidden services.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace Service::HiddenSvc

namespace StructureSvc {

/// The structures of all packages and services.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the names of all structures.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Delivers the structure, or NotFound.
  virtual void Get(const std::string& structure_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const StructureInfo>>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace StructureSvc

namespace SourceSvc {

/// The sources from which the domain is loaded.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Loads a source and registers it, or delivers the error.
  virtual void Create(const std::string& source_id, const std::shared_ptr<const CreateSpec>& spec,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Removes a source and everything that came from it, or delivers NotFound.
  virtual void Delete(const std::string& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Delivers what the source was created with, or NotFound.
  virtual void Get(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const Info>>& result) = 0;

  /// Delivers the ids of all sources, ascending.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Loads one source again, or without an id all of them. NotFound for an unknown id.
  virtual void Reload(const boost::optional<std::string>& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Delivers the fingerprint of one source, or without an id that of all together, or NotFound.
  virtual void Fingerprint(const boost::optional<std::string>& source_id,
                           const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Metamodel
