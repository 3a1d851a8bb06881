#include "cli/json_metadata_container.h"

// The queries of the container. They walk the sources in ascending id order, and in each source the
// namespaces or commands in ascending order of their identities.

namespace Zelk::Provider::Metadata::Cli {
namespace {

/// Appends the identities whose path equals the given one; without one, all identities.
template <typename Identity>
class PushIf {
 public:
  PushIf(std::list<std::shared_ptr<const Identity>>& identities,
         const boost::optional<std::string>& path)
      : identities_(identities), path_(path) {}

  void operator()(const std::shared_ptr<const Identity>& identity) const {
    if (!path_ || identity->path == *path_) identities_.push_back(identity);
  }

 private:
  std::list<std::shared_ptr<const Identity>>& identities_;
  const boost::optional<std::string>& path_;
};

/// Returns the identities in `nodes`, one of the maps of each source, whose path equals the given
/// one; without one, all of them.
template <typename Identity, typename Nodes>
std::list<std::shared_ptr<const Identity>> Identities(
    const SourceRegistry<SourceDomain>::Table& sources, Nodes SourceData::*nodes,
    const boost::optional<std::string>& path) {
  std::list<std::shared_ptr<const Identity>> identities;
  const PushIf<Identity> push(identities, path);
  for (const auto& source : sources) {
    for (const auto& node : (*source.second).*nodes) push(node.first);
  }
  return identities;
}

/// Returns the record from the first source that has the identity in `nodes`, or null if none has
/// it. `kind` is the kind of the names in `nodes`.
template <typename Identity, typename Nodes>
typename Nodes::mapped_type FindNode(const SourceRegistry<SourceDomain>::Table& sources,
                                     NameKind kind, Nodes SourceData::*nodes,
                                     const std::shared_ptr<const Identity>& identity) {
  if (!identity) return nullptr;
  const NameMark name(kind, identity->path, identity->name);
  for (const auto& source : sources) {
    if (!source.second->names.MayHold(name)) continue;
    const auto& map = (*source.second).*nodes;
    const auto found = map.find(identity);
    if (found != map.end()) return found->second;
  }
  return nullptr;
}

}  // namespace

std::list<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>>
JsonMetadataContainer::ListNamespaces() const {
  return Identities<Bindings::Cli::NamespaceSvc::Identity>(sources_.Sources(),
                                                           &SourceData::namespaces, boost::none);
}

std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info> JsonMetadataContainer::NamespaceInfo(
    const std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>& identity) const {
  return FindNode(sources_.Sources(), kNamespaceName, &SourceData::namespaces, identity);
}

std::string JsonMetadataContainer::NamespaceFingerprint() const {
  return DigestOfSources(sources_.Sources(), &SourceData::namespace_fingerprint);
}

std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>>
JsonMetadataContainer::ListCommands(const boost::optional<std::string>& namespace_path) const {
  return Identities<Bindings::Cli::CommandSvc::Identity>(sources_.Sources(), &SourceData::commands,
                                                         namespace_path);
}

std::shared_ptr<const Bindings::Cli::CommandSvc::Info> JsonMetadataContainer::CommandInfo(
    const std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>& identity) const {
  return FindNode(sources_.Sources(), kCommandName, &SourceData::commands, identity);
}

std::string JsonMetadataContainer::CommandFingerprint() const {
  return DigestOfSources(sources_.Sources(), &SourceData::command_fingerprint);
}

}  // namespace Zelk::Provider::Metadata::Cli
