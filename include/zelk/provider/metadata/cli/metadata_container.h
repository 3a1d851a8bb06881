#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/cli/records.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/export.h>

namespace Zelk::Provider::Metadata::Cli {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

/// The CLI metadata of a set of sources. Each source is one JSON file on the local file system.
///
/// Walk order: sources in ascending id order, and in each source the records in ascending order of
/// their identities (path, then name, each by its bytes). A lookup returns the first record in walk
/// order whose identity equals the given one. A list has an entry for each source that has the
/// record, so entries may repeat.
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
      const std::shared_ptr<const Bindings::Cli::SourceSvc::CreateSpec>& spec) = 0;

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
  virtual std::shared_ptr<const Bindings::Cli::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const = 0;

  /// Returns 32 hex digits that change when the file of the source does: the MD5 of the hex text of
  /// the file's MD5. Without an id, returns the MD5 of these texts of all sources in id order.
  /// Empty for an unknown id.
  virtual std::string SourceFingerprint(const boost::optional<std::string>& source_id) const = 0;

  /// Returns the identities of all namespaces in walk order: those that a file describes, those
  /// above them that only a path implies, and the root of each source that has a namespace.
  virtual std::list<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>> ListNamespaces()
      const = 0;

  /// Returns the namespace from the first source that has it, with the children that this source
  /// knows. Null for an unknown identity and for a null one.
  virtual std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info> NamespaceInfo(
      const std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>& identity) const = 0;

  /// Returns 32 hex digits that change when any file does: the MD5 of the hex texts of the MD5 of
  /// all files, in id order.
  virtual std::string NamespaceFingerprint() const = 0;

  /// Returns the identities of all commands in walk order. With a namespace, returns only those
  /// whose path equals it exactly; empty if there are none.
  virtual std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>> ListCommands(
      const boost::optional<std::string>& namespace_path) const = 0;

  /// Returns the command from the first source that has it. Null for an unknown identity and for a
  /// null one.
  virtual std::shared_ptr<const Bindings::Cli::CommandSvc::Info> CommandInfo(
      const std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>& identity) const = 0;

  /// Returns the same text as NamespaceFingerprint.
  virtual std::string CommandFingerprint() const = 0;

  virtual ~MetadataContainer();
};

}  // namespace Zelk::Provider::Metadata::Cli
