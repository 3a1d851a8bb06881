#pragma once

#include <map>
#include <memory>
#include <string>

#include <com/orvane/zelk/metadata/cli/records.h>

#include "common/sources/source_record.h"

namespace Zelk::Provider::Metadata::Cli {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;

using NamespaceIdentityPtr = std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>;
using NamespacePtr = std::shared_ptr<Bindings::Cli::NamespaceSvc::Info>;

/// Orders pointers to identities by what they point to.
struct ByIdentity {
  template <typename IdentityPtr>
  bool operator()(const IdentityPtr& left, const IdentityPtr& right) const {
    return *left < *right;
  }
};

/// The kinds of names that filters keep.
enum NameKind : unsigned { kNamespaceName, kCommandName };

/// What one CLI file declares: a tree of namespaces and the commands in them.
struct SourceData
    : SourceRecord<Bindings::Cli::SourceSvc::CreateSpec, Bindings::Cli::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// Adds the namespace to the tree, and those above it that are missing.
  /// Intended(cli-late-namespace): a namespace that is there already is replaced by this one, and
  /// its children are no longer listed. Its parent lists it a second time.
  void RegisterNsNode(const NamespacePtr& node);

  /// Lists the identity among its parent's children, as often as it is registered. When the parent
  /// is missing, makes it and returns it, to be registered itself; otherwise null.
  NamespacePtr RegisterWithParent(const NamespaceIdentityPtr& identity);

  /// The identity of the namespace with that dotted full name; the root's for an empty one.
  static NamespaceIdentityPtr Str2NsId(const std::string& path);

  std::map<NamespaceIdentityPtr, NamespacePtr, ByIdentity> namespaces;
  std::map<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>,
           std::shared_ptr<Bindings::Cli::CommandSvc::Info>, ByIdentity>
      commands;
  /// The file's digest, from which the domain's two fingerprints are made.
  std::string namespace_fingerprint;
  std::string command_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Cli
