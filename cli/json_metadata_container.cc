#include "cli/json_metadata_container.h"

#include <vector>

#include "cli/metadata_parser.h"

namespace Zelk::Provider::Metadata::Cli {
namespace {

template <typename Nodes>
void PushIdentities(NameKind kind, const Nodes& nodes, std::vector<NameMark>& names) {
  for (const auto& node : nodes) names.emplace_back(kind, node.first->path, node.first->name);
}

}  // namespace

bool SourceDomain::Parse(TextBuffer text, const std::shared_ptr<SourceData>& source,
                         Errors& errors) {
  const auto on_namespace = [&source](const NamespacePtr& info) { source->RegisterNsNode(info); };
  // Intended(cli-last-command-counts): of two commands with the same identity, the last one is
  // kept.
  const auto on_command = [&source](const std::shared_ptr<Bindings::Cli::CommandSvc::Info>& info) {
    source->commands[info->identity] = info;
  };
  return MetadataParser::LoadMetadata(std::move(text), on_namespace, on_command, errors);
}

void SourceDomain::PushNames(const SourceData& source, std::vector<NameMark>& names) {
  PushIdentities(kNamespaceName, source.namespaces, names);
  PushIdentities(kCommandName, source.commands, names);
}

void SourceDomain::SetFingerprint(SourceData& source, const std::string& digest) {
  source.fingerprint = digest;
  source.namespace_fingerprint = digest;
  source.command_fingerprint = digest;
}

JsonMetadataContainer::JsonMetadataContainer() = default;

JsonMetadataContainer::~JsonMetadataContainer() = default;

ErrorPtr JsonMetadataContainer::CreateSource(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Cli::SourceSvc::CreateSpec>& spec) {
  return sources_.Create(source_id, spec);
}

ErrorPtr JsonMetadataContainer::DeleteSource(const std::string& source_id) {
  return sources_.Delete(source_id);
}

ErrorPtr JsonMetadataContainer::ReloadSource(const boost::optional<std::string>& source_id) {
  return sources_.Reload(source_id);
}

std::list<std::string> JsonMetadataContainer::ListSources() const {
  return sources_.Ids();
}

std::shared_ptr<const Bindings::Cli::SourceSvc::Info> JsonMetadataContainer::SourcesInfo(
    const std::string& source_id) const {
  return sources_.Info(source_id);
}

std::string JsonMetadataContainer::SourceFingerprint(
    const boost::optional<std::string>& source_id) const {
  return sources_.Fingerprint(source_id);
}

}  // namespace Zelk::Provider::Metadata::Cli
