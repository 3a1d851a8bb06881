#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/services.h>
#include <zelk/provider/metadata/export.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

// The ten services of the domain. Each answers from the container that it is given and shares
// ownership of it; the container must not be null. An operation runs on the caller's thread and
// calls its result before it returns: once with the answer, or once with an error of one message.
// The activation is not looked at. Exceptions (no memory, an empty result) leave the operation.

namespace Zelk::Provider::Metadata::Metamodel {

namespace ComponentSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentSvc::AsyncServiceInterface {
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
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentData>>&
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

namespace EnumerationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::EnumerationSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Enumeration names: of packages, services, packages' structures, services' structures.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first of that name in the order of List. NotFound for an unknown id.
  void Get(const std::string& enumeration_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::EnumerationInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace EnumerationSvc

namespace PackageSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::PackageSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Package names in walk order.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first package of that name. NotFound for an unknown id.
  void Get(const std::string& package_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::PackageInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace PackageSvc

namespace ResourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::ResourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// The resource types of all sources, each once.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::set<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ResourceSvc

namespace Resource::ModelSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::Resource::ModelSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// The structures that are models of the resource. NotFound for an unknown id.
  void List(const std::string& resource_id,
            const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::set<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Resource::ModelSvc

namespace ServiceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::ServiceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Service names in walk order.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first service of that name. NotFound for an unknown id.
  void Get(const std::string& service_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::ServiceInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace ServiceSvc

namespace Service::OperationSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::Service::OperationSvc::
          AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// The operation names of the service, ascending. NotFound for an unknown service.
  void List(const std::string& service_id,
            const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// NotFound, about both ids, for an unknown service or operation.
  void Get(const std::string& service_id, const std::string& operation_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::OperationInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::OperationSvc

namespace Service::HiddenSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::Service::HiddenSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Always empty.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace Service::HiddenSvc

namespace StructureSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::StructureSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Structure names: of packages, then of services.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// The first of that name in the order of List. NotFound for an unknown id.
  void Get(const std::string& structure_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::StructureInfo>>&
               result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace StructureSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it. On success nothing is delivered.
  void Create(
      const std::string& source_id,
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::CreateSpec>&
          spec,
      const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
      const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// NotFound for an unknown id. On success nothing is delivered.
  void Delete(const std::string& source_id,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// What the source was created with. NotFound for an unknown id.
  void Get(const std::string& source_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::Info>>&
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

}  // namespace Zelk::Provider::Metadata::Metamodel
