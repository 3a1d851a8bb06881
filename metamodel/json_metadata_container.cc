#include "metamodel/json_metadata_container.h"

#include <functional>

#include "common/queries/tree_queries.h"
#include "metamodel/json_metadata_parser.h"
#include "metamodel/walkers.h"

namespace Zelk::Provider::Metadata::Metamodel {

bool SourceDomain::Parse(TextBuffer text, const std::shared_ptr<SourceData>& source,
                         Errors& errors) {
  using std::placeholders::_1;
  using std::placeholders::_2;
  const JsonMetadataParser::RegisterCallbacks callbacks{
      std::bind(&SourceData::RegisterComponentNode, source, _1),
      std::bind(&SourceData::RegisterResoure, source, _1),
      std::bind(&SourceData::RegisterModel, source, _1, _2)};
  return JsonMetadataParser::LoadMetadata(std::move(text), callbacks, errors);
}

void SourceDomain::SetFingerprint(SourceData& source, const std::string& digest) {
  source.fingerprint = digest;
  source.component_fingerprint = digest;
}

void SourceDomain::PushNames(const SourceData& source, std::vector<NameMark>& names) {
  const std::pair entry(std::string(), &source);
  PushTreeNames(entry, names);
  for (const auto kind : {kStructureName, kPackageStructureName}) {
    WalkComponents{WalkPackages{WalkStructures{PushMark{kind, names}}}}(entry);
  }
  for (const auto kind : {kStructureName, kServiceStructureName}) {
    WalkComponents{WalkPackages{WalkServices{WalkStructures{PushMark{kind, names}}}}}(entry);
  }
  for (const auto kind : {kEnumerationName, kPackageEnumerationName}) {
    WalkComponents{WalkPackages{WalkEnumerations{PushMark{kind, names}}}}(entry);
  }
  for (const auto kind : {kEnumerationName, kServiceEnumerationName}) {
    WalkComponents{WalkPackages{WalkServices{WalkEnumerations{PushMark{kind, names}}}}}(entry);
  }
  for (const auto kind : {kEnumerationName, kPackageStructureEnumerationName}) {
    WalkComponents{WalkPackages{WalkStructures{WalkEnumerations{PushMark{kind, names}}}}}(entry);
  }
  for (const auto kind : {kEnumerationName, kServiceStructureEnumerationName}) {
    WalkComponents{
        WalkPackages{WalkServices{WalkStructures{WalkEnumerations{PushMark{kind, names}}}}}}(entry);
  }
}

JsonMetadataContainer::JsonMetadataContainer() = default;

JsonMetadataContainer::~JsonMetadataContainer() = default;

ErrorPtr JsonMetadataContainer::CreateSource(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>& spec) {
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

std::shared_ptr<const Bindings::Metamodel::SourceSvc::Info> JsonMetadataContainer::SourcesInfo(
    const std::string& source_id) const {
  return sources_.Info(source_id);
}

std::string JsonMetadataContainer::SourceFingerprint(
    const boost::optional<std::string>& source_id) const {
  return sources_.Fingerprint(source_id);
}

}  // namespace Zelk::Provider::Metadata::Metamodel
