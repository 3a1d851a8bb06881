#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/cli/records.h>
#include <zelk/data/values.h>
#include <zelk/provider/metadata/export.h>

namespace Zelk::Provider::Metadata::Cli {

/// The CLI metadata of a set of sources, each a JSON file on the local file system.
///
/// Queries walk the sources in ascending id order and, within each, the records in ascending order
/// of their identities (path, then name, each by its bytes). Lookups take the first record of that
/// identity; lists keep duplicates, one for each source. Records handed out are immutable and stay
/// valid after a reload or delete. No query throws for an unknown key.
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
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::CreateSpec>&
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
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const = 0;

  /// 32 hex digits: the MD5 of the hex MD5 text of the source's file; without an id, of those of
  /// all sources in id order. Empty for an unknown id.
  virtual std::string SourceFingerprint(const boost::optional<std::string>& source_id) const = 0;

  /// The identities of all namespaces in walk order: those that a file names, those implied by a
  /// path, and each source's root.
  virtual std::list<
      std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity>>
  ListNamespaces() const = 0;

  /// The namespace from the first source that has it, with the children that this source knows.
  /// Null for an unknown identity and for a null one.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Info>
  NamespaceInfo(
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity>&
          identity) const = 0;

  /// 32 hex digits: the MD5 of the hex MD5 texts of the files of all sources in id order.
  virtual std::string NamespaceFingerprint() const = 0;

  /// The identities of the commands in walk order; with a namespace, of those directly in it, whose
  /// path equals it exactly.
  virtual std::list<std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Identity>>
  ListCommands(const boost::optional<std::string>& namespace_path) const = 0;

  /// The command from the first source that has it. Null for an unknown identity and for a null
  /// one.
  virtual std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Info> CommandInfo(
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Identity>&
          identity) const = 0;

  /// As NamespaceFingerprint.
  virtual std::string CommandFingerprint() const = 0;

  virtual ~MetadataContainer();
};

}  // namespace Zelk::Provider::Metadata::Cli
