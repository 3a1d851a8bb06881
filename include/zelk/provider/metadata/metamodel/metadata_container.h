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

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// The Metamodel metadata of a set of sources. Each source is one JSON file on the local file
/// system.
///
/// Walk order: sources in ascending id order, and at each level the records in ascending order of
/// their keys (by bytes). A lookup returns the first record in walk order whose key equals the id
/// exactly, unless the operation says otherwise. A list has an entry for each record met, so a name
/// that several sources declare is listed once for each.
///
/// Ownership: records are immutable and shared. One that was returned stays valid and unchanged
/// after a reload, after a delete and after the end of the container.
///
/// Errors: CreateSource, DeleteSource and ReloadSource return null for success and otherwise the
/// error (<zelk/data/values.h> shows how to read it). A query for an unknown key returns null, an
/// empty optional or an empty text, as it says. Nothing is thrown except std::bad_alloc.
///
/// Threads: nothing is locked. Const operations may run at the same time. CreateSource,
/// DeleteSource and ReloadSource must not run at the same time as any other operation on the same
/// container.
class ZELK_METADATA_SERVICES_EXPORT MetadataContainer {
 public:
  /// Returns a new, empty container. Every call makes another one; they share nothing. Give one
  /// container to all services of the domain.
  static std::shared_ptr<MetadataContainer> GetInstance();

  MetadataContainer();
  MetadataContainer(const MetadataContainer&) = delete;
  MetadataContainer& operator=(const MetadataContainer&) = delete;

  /// Loads the file that `spec` names and registers it as `source_id`. On an error the container is
  /// unchanged. Errors:
  ///
  /// - AlreadyExists: the id is registered.
  /// - NotFound: the file cannot be opened, or the spec has no file path (which counts as an empty
  ///   one).
  /// - InvalidArgument with messages, in the order found: the file cannot be parsed.
  /// - InvalidArgument without messages: the spec is null, or its source type is unknown.
  /// - Unsupported, without messages: the source is a remote one.
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> CreateSource(
      const std::string& source_id,
      const std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>& spec) = 0;

  /// Removes the source and everything that came from it. Returns NotFound for an unknown id.
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> DeleteSource(
      const std::string& source_id) = 0;

  /// Reads the file of the source again, or without an id those of all sources, in ascending id
  /// order. A source whose file cannot be loaded keeps its old data; this is not reported. When all
  /// are reloaded, every source after the first that failed keeps its old data too. If memory runs
  /// out on the way, each source has wholly old or wholly new data. The only error is NotFound for
  /// an unknown id; it has the source-exists message.
  virtual std::shared_ptr<const ::Zelk::Data::ErrorValue> ReloadSource(
      const boost::optional<std::string>& source_id) = 0;

  /// Returns the ids of all sources, ascending.
  virtual std::list<std::string> ListSources() const = 0;

  /// Returns what the source was created with, or null for an unknown id.
  virtual std::shared_ptr<const Bindings::Metamodel::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const = 0;

  /// Returns 32 hex digits that change when the file of the source does: the MD5 of the hex text of
  /// the file's MD5. Without an id, returns the MD5 of these texts of all sources in id order.
  /// Empty for an unknown id.
  virtual std::string SourceFingerprint(const boost::optional<std::string>& source_id) const = 0;

  /// Returns the names of all components in walk order.
  virtual std::list<std::string> ListComponents() const = 0;

  /// Returns the component and its fingerprint from the first source that has it, or null if none
  /// has it.
  virtual std::shared_ptr<const Bindings::Metamodel::ComponentData> ComponentInfo(
      const std::string& component_id) const = 0;

  /// Returns the MD5, as 32 hex digits, of the file of the first source that has the component.
  /// Empty if none has it.
  virtual std::string ComponentFingerprint(const std::string& component_id) const = 0;

  /// Returns the names of all packages in walk order.
  virtual std::list<std::string> ListPackages() const = 0;

  /// Returns the first package of that name, or null for an unknown one.
  virtual std::shared_ptr<const Bindings::Metamodel::PackageInfo> PackageInfo(
      const std::string& package_id) const = 0;

  /// Returns the names of all services in walk order.
  virtual std::list<std::string> ListServices() const = 0;

  /// Returns the first service of that name, or null for an unknown one.
  virtual std::shared_ptr<const Bindings::Metamodel::ServiceInfo> ServiceInfo(
      const std::string& service_id) const = 0;

  /// Returns the operation names, ascending, of the first service of that name. Empty optional for
  /// an unknown service; an empty list for a service without operations.
  virtual boost::optional<std::list<std::string>> ListOperations(
      const std::string& service_id) const = 0;

  /// Returns the operation of the first service of that name; no other service is searched. Null if
  /// the service or its operation is unknown.
  virtual std::shared_ptr<const Bindings::Metamodel::OperationInfo> OperationInfo(
      const std::string& service_id, const std::string& operation_id) const = 0;

  /// Returns an empty list.
  virtual std::list<std::string> ListHiddens() const = 0;

  /// Returns the names of all enumerations: first those of packages, then those of services, of
  /// packages' structures and of services' structures, each group in walk order.
  virtual std::list<std::string> ListEnumerations() const = 0;

  /// Returns the first enumeration of that name in the order of ListEnumerations, or null for an
  /// unknown one.
  virtual std::shared_ptr<const Bindings::Metamodel::EnumerationInfo> EnumerationInfo(
      const std::string& enumeration_id) const = 0;

  /// Returns the names of all structures: first those of packages, then those of services, each
  /// group in walk order.
  virtual std::list<std::string> ListStructures() const = 0;

  /// Returns the first structure of that name in the order of ListStructures, or null for an
  /// unknown one.
  virtual std::shared_ptr<const Bindings::Metamodel::StructureInfo> StructureInfo(
      const std::string& structure_id) const = 0;

  /// Returns the resource types of all sources, ascending, each once.
  virtual std::set<std::string> ListResources() const = 0;

  /// Returns the names of the structures that are models of the resource. They are those of the
  /// last source, in id order, that has the resource; sources are not merged. Empty optional for an
  /// unknown resource.
  virtual boost::optional<std::set<std::string>> ListModels(
      const std::string& resource_id) const = 0;

  virtual ~MetadataContainer();
};

}  // namespace Zelk::Provider::Metadata::Metamodel
