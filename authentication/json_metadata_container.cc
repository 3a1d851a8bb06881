#include "authentication/json_metadata_container.h"

#include <functional>

#include "authentication/json_metadata_parser.h"
#include "common/queries/tree_queries.h"

namespace Zelk::Provider::Metadata::Authentication {

bool SourceDomain::Parse(TextBuffer text, const std::shared_ptr<SourceData>& source,
                         Errors& errors) {
  using std::placeholders::_1;
  using std::placeholders::_2;
  return JsonMetadataParser::LoadMetadata(
      std::move(text), std::bind(&SourceData::RegisterComponentNode, source, _1, _2), errors);
}

void SourceDomain::SetFingerprint(SourceData& source, const std::string& digest) {
  source.fingerprint = digest;
  source.component_fingerprint = digest;
}

void SourceDomain::PushNames(const SourceData& source, std::vector<NameMark>& names) {
  PushTreeNames(std::pair(std::string(), &source), names);
}

JsonMetadataContainer::JsonMetadataContainer() = default;

JsonMetadataContainer::~JsonMetadataContainer() = default;

ErrorPtr JsonMetadataContainer::CreateSource(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>& spec) {
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

std::shared_ptr<const Bindings::Authentication::SourceSvc::Info> JsonMetadataContainer::SourcesInfo(
    const std::string& source_id) const {
  return sources_.Info(source_id);
}

std::string JsonMetadataContainer::SourceFingerprint(
    const boost::optional<std::string>& source_id) const {
  return sources_.Fingerprint(source_id);
}

}  // namespace Zelk::Provider::Metadata::Authentication
