#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/authentication/services.h>
#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/export.h>

// The five services of the domain. Each one uses the container that it is given and shares
// ownership of it. The container must not be null.
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

namespace Zelk::Provider::Metadata::Authentication {

namespace ComponentSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Authentication::ComponentSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all components in walk order, once for each source that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the component and its fingerprint from the first source that has it, or NotFound.
  void Get(
      const std::string& component_id, const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::ComponentData>>&
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

namespace PackageSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Authentication::PackageSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the names of all packages in walk order, once for each component that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first package of that name in walk order, or NotFound.
  void Get(const std::string& package_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::PackageInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace PackageSvc

namespace ServiceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Authentication::ServiceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the full ids of all services in walk order, once for each package that has them.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the first service of that id in walk order, or NotFound.
  void Get(const std::string& service_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::ServiceInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ServiceSvc

namespace Service::OperationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Authentication::Service::OperationSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the operation names, ascending, of the first service of that id, or NotFound for an
  /// unknown service.
  void List(const std::string& service_id, const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Delivers the operation from the first service of that id that has it: a service without it
  /// does not end the search. NotFound, with both ids as arguments, if none has it.
  void Get(
      const std::string& service_id, const std::string& operation_id,
      const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::OperationInfo>>&
          result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::OperationSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Authentication::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it as `source_id`. Delivers only errors; see
  /// MetadataContainer::CreateSource for them.
  void Create(const std::string& source_id,
              const std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>& spec,
              const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Removes the source and everything that came from it. Delivers only an error: NotFound for an
  /// unknown id.
  void Delete(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Delivers what the source was created with, or NotFound.
  void Get(
      const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Authentication::SourceSvc::Info>>&
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

}  // namespace Zelk::Provider::Metadata::Authentication
