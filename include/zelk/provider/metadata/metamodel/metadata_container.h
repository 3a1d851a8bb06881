#pragma once

#include <list>
#include <memory>
#include <set>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/metamodel/records.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/export.h>

namespace Zelk::Provider::Metadata::Metamodel {

/// The Metamodel metadata of a set of sources, each a JSON file on the local file system.
///
/// Queries walk the sources in ascending id order and, within each, the records in ascending key
/// order. Lookups take the first record whose key equals the id exactly; lists name every record
/// met, so a name that several sources declare is listed once for each. Records handed out are
/// immutable and stay valid after a reload or delete. No query throws for an unknown key.
///
/// Mutations return null for success and otherwise the error; they never throw for bad input.
///
/// Not protected: const operations may run at the same time, a mutation must run alone.
class ZELK_METADATA_SERVICES_EXPORT MetadataContainer {
 public:
  /// A new, empty container. Every call makes another one; nothing is shared between them. Give
  /// one container to all services of the domain.
  static std::shared_ptr<MetadataContainer> GetInstance();

  MetadataContainer();
  MetadataContainer(const MetadataContainer&) = delete;
  MetadataContainer& operator=(const MetadataContainer&) = delete;

  /// Loads the file that `spec` names and registers it as `source_id`. Errors, after each of which
  /// the container is unchanged: AlreadyExists for a known id; NotFound when the file cannot be
  /// opened (a spec without a file path included); InvalidArgument with the parser's messages in
  /// the order found, or with none for a source type that is no known one or an absent spec;
  /// Unsupported for a remote source.
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> CreateSource(
      const std::string& source_id,
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::CreateSpec>&
          spec) = 0;

  /// Removes the source and all it contributed. NotFound for an unknown id.
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> DeleteSource(
      const std::string& source_id) = 0;

  /// Reads the source's file again; without an id every source's, in ascending id order. A source
  /// whose file fails to load keeps its old data and is not reported; when reloading all, so does
  /// every source after the first that failed. Sources are replaced one after another: when
  /// std::bad_alloc leaves the call, each source is wholly old or wholly new. The one error is
  /// NotFound for an unknown id (with the source-exists message).
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> ReloadSource(
      const boost::optional<std::string>& source_id) = 0;

  /// All source ids, ascending.
  virtual std::list<std::string> ListSources() const = 0;

  /// What the source was created with; null for an unknown id.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::Info>
  SourcesInfo(const std::string& source_id) const = 0;

  /// 32 hex digits: the MD5 of the hex MD5 text of the source's file; without an id, of those of
  /// all sources in id order. Empty for an unknown id.
  virtual std::string SourceFingerprint(const boost::optional<std::string>& source_id) const = 0;

  /// Component names in walk order.
  virtual std::list<std::string> ListComponents() const = 0;

  /// The component and its fingerprint from the first source that has it; null when none has.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentData>
  ComponentInfo(const std::string& component_id) const = 0;

  /// The hex MD5 of the file that declares the component (of the first such source); empty when
  /// none does.
  virtual std::string ComponentFingerprint(const std::string& component_id) const = 0;

  /// Package names in walk order.
  virtual std::list<std::string> ListPackages() const = 0;

  /// Null for an unknown package.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::PackageInfo> PackageInfo(
      const std::string& package_id) const = 0;

  /// Service names in walk order.
  virtual std::list<std::string> ListServices() const = 0;

  /// Null for an unknown service.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::ServiceInfo> ServiceInfo(
      const std::string& service_id) const = 0;

  /// The service's operation names, ascending, perhaps none at all; an empty optional for an
  /// unknown service.
  virtual boost::optional<std::list<std::string>> ListOperations(
      const std::string& service_id) const = 0;

  /// Null for an unknown service and for an unknown operation. Only the first service of that id
  /// is looked at.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::OperationInfo>
  OperationInfo(const std::string& service_id, const std::string& operation_id) const = 0;

  /// Always empty.
  virtual std::list<std::string> ListHiddens() const = 0;

  /// Enumeration names: all of packages, then of services, of packages' structures and of
  /// services' structures, each in walk order.
  virtual std::list<std::string> ListEnumerations() const = 0;

  /// The first of that name in the order of ListEnumerations; null when there is none.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::EnumerationInfo>
  EnumerationInfo(const std::string& enumeration_id) const = 0;

  /// Structure names: all of packages, then all of services, each in walk order.
  virtual std::list<std::string> ListStructures() const = 0;

  /// The first of that name in the order of ListStructures; null when there is none.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Metamodel::StructureInfo>
  StructureInfo(const std::string& structure_id) const = 0;

  /// The resource types of all sources, each once.
  virtual std::set<std::string> ListResources() const = 0;

  /// The structures that are models of the resource, by the LAST source that names it; sources are
  /// not merged. An empty optional for an unknown resource.
  virtual boost::optional<std::set<std::string>> ListModels(
      const std::string& resource_id) const = 0;

  virtual ~MetadataContainer();
};

}  // namespace Zelk::Provider::Metadata::Metamodel
