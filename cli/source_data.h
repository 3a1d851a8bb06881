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

/// Compares the identities that two pointers point to.
struct ByIdentity {
  template <typename IdentityPtr>
  bool operator()(const IdentityPtr& left, const IdentityPtr& right) const {
    return *left < *right;
  }
};

/// The kinds of names in the filter of a source.
enum NameKind : unsigned { kNamespaceName, kCommandName };

/// The contents of one CLI file: a tree of namespaces and the commands in them.
struct SourceData
    : SourceRecord<Bindings::Cli::SourceSvc::CreateSpec, Bindings::Cli::SourceSvc::Info> {
  using SourceRecord::SourceRecord;

  /// Adds the namespace to the tree, and those above it that are missing.
  /// Intended(cli-late-namespace): a namespace that is there already is replaced by this one, and
  /// its children are no longer listed. Its parent lists it a second time.
  void RegisterNsNode(const NamespacePtr& node);

  /// Adds the identity to the children of its parent, even if it is one of them already. If the
  /// parent is missing, makes it and returns it, so that the caller registers it; otherwise returns
  /// null.
  NamespacePtr RegisterWithParent(const NamespaceIdentityPtr& identity);

  /// Returns the identity of the namespace with that full name; that of the root for an empty name.
  static NamespaceIdentityPtr Str2NsId(const std::string& path);

  std::map<NamespaceIdentityPtr, NamespacePtr, ByIdentity> namespaces;
  std::map<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>,
           std::shared_ptr<Bindings::Cli::CommandSvc::Info>, ByIdentity>
      commands;
  /// The digest of the file, once for each of the domain's two fingerprints.
  std::string namespace_fingerprint;
  std::string command_fingerprint;
};

}  // namespace Zelk::Provider::Metadata::Cli
