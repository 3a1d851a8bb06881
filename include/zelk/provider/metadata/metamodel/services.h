#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/services.h>
#include <zelk/provider/metadata/export.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

// The ten services of the domain. Each one uses the container that it is given and shares ownership
// of it. The container must not be null.
//
// Calls: an operation runs on the caller's thread and calls its result before it returns, once,
// with the answer or with an error. The exceptions are Create, Delete and Reload of SourceSvc,
// which call it for an error only: they report success by returning without a call.
//
// Errors: an error has one message, with two exceptions, both of SourceSvc Create. When a file
// cannot be parsed, the error has a message for each problem found. When the spec is null or not
// for a local file, the error has no message. <zelk/data/values.h> shows how to read an error.
//
// Exceptions: an operation lets through std::bad_alloc, std::bad_function_call (the result has no
// callback) and whatever the callback throws.
//
// Threads: nothing is locked. Create, Delete and Reload of SourceSvc must not run at the same time
// as any other operation on the same container; all other operations may run at the same time.
//
// The activation is not used.

namespace Zelk::Provider::Metadata::Metamodel {

namespace ComponentSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::ComponentSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all components in walk order, once for each source that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the component and its fingerprint from the first source that has it, or NotFound.
  void Get(const std::string& component_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::ComponentData>>&
               result) override;

  /// Delivers the MD5, as 32 hex digits, of the file of the first source that has the component,
  /// or NotFound.
  void Fingerprint(const std::string& component_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ComponentSvc

namespace EnumerationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::EnumerationSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all enumerations: first those of packages, then those of services, of
  /// packages' structures and of services' structures, each group in walk order.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first one of that name in the order of List, or NotFound.
  void Get(const std::string& enumeration_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::EnumerationInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace EnumerationSvc

namespace PackageSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::PackageSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all packages in walk order, once for each component that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first package of that name in walk order, or NotFound.
  void Get(const std::string& package_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::PackageInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace PackageSvc

namespace ResourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::ResourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the resource types of all sources, ascending, each once.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::set<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ResourceSvc

namespace Resource::ModelSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::Resource::ModelSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of the structures that are models of the resource, ascending, or NotFound.
  /// They are those of the last source, in id order, that has the resource.
  void List(const std::string& resource_id, const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::set<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Resource::ModelSvc

namespace ServiceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::ServiceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all services in walk order, once for each package that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first service of that name in walk order, or NotFound.
  void Get(const std::string& service_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::ServiceInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ServiceSvc

namespace Service::OperationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::Service::OperationSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the operation names, ascending, of the first service of that name, or NotFound for an
  /// unknown service.
  void List(const std::string& service_id, const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the operation of the first service of that name. NotFound, with both ids as
  /// arguments, if the service or its operation is unknown.
  void Get(const std::string& service_id, const std::string& operation_id,
           const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::OperationInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::OperationSvc

namespace Service::HiddenSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::Service::HiddenSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers an empty list.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::HiddenSvc

namespace StructureSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::StructureSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all structures: first those of packages, then those of services, each
  /// group in walk order.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first one of that name in the order of List, or NotFound.
  void Get(const std::string& structure_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::StructureInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace StructureSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Metamodel::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it as `source_id`. Delivers only errors; see
  /// MetadataContainer::CreateSource for them.
  void Create(const std::string& source_id,
              const std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>& spec,
              const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Removes the source and everything that came from it. Delivers only an error: NotFound for an
  /// unknown id.
  void Delete(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Delivers what the source was created with, or NotFound.
  void Get(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Metamodel::SourceSvc::Info>>&
               result) override;

  /// Delivers the ids of all sources, ascending.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Reads the file of one source again, or without an id those of all sources. A source whose file
  /// cannot be loaded keeps its old data, which is not reported; see
  /// MetadataContainer::ReloadSource. Delivers only an error: NotFound for an unknown id.
  void Reload(const boost::optional<std::string>& source_id,
              const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Delivers the fingerprint (32 hex digits) of one source, or NotFound. Without an id, delivers
  /// the fingerprint of all sources together.
  void Fingerprint(const boost::optional<std::string>& source_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Metamodel
