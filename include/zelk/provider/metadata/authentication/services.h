#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/authentication/services.h>
#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/export.h>

// The five services of the domain. Each answers from the container that it is given and shares
// ownership of it; the container must not be null. An operation runs on the caller's thread and
// calls its result before it returns: once with the answer, or once with an error of one message.
// The activation is not looked at. Exceptions (no memory, an empty result) leave the operation.

namespace Zelk::Provider::Metadata::Authentication {

namespace ComponentSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Authentication::ComponentSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Component names in walk order.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The component of the first source that has it, with its fingerprint. NotFound for an unknown
  /// id.
  void Get(const std::string& component_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Authentication::ComponentData>>&
               result) override;

  /// The hex MD5 of the file that declares the component. NotFound for an unknown id.
  void Fingerprint(const std::string& component_id,
                   const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ComponentSvc

namespace PackageSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Authentication::PackageSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Package names in walk order.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first package of that name. NotFound for an unknown id.
  void Get(const std::string& package_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Authentication::PackageInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace PackageSvc

namespace ServiceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Authentication::ServiceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Full service ids in walk order.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first service of that id. NotFound for an unknown id.
  void Get(const std::string& service_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Authentication::ServiceInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ServiceSvc

namespace Service::OperationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Authentication::Service::OperationSvc::
          AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// The operation names of the first service of that id, ascending. NotFound for an unknown
  /// service.
  void List(const std::string& service_id,
            const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The operation of the first service of that id that has it. NotFound, about both ids, when none
  /// has.
  void Get(const std::string& service_id, const std::string& operation_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Authentication::OperationInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::OperationSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it. On success nothing is delivered.
  void Create(const std::string& source_id,
              const std::shared_ptr<
                  const ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::CreateSpec>& spec,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// NotFound for an unknown id. On success nothing is delivered.
  void Delete(const std::string& source_id,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// What the source was created with. NotFound for an unknown id.
  void Get(
      const std::string& source_id,
      const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
      const ::Zelk::AsyncResult<
          std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::Info>>&
          result) override;

  /// All source ids, ascending.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Reads one source's file again, or all. On success nothing is delivered, and a file that fails
  /// to load leaves the old data without being reported.
  void Reload(const boost::optional<std::string>& source_id,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// The fingerprint of one source, or of all. NotFound for an unknown id.
  void Fingerprint(const boost::optional<std::string>& source_id,
                   const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Authentication
