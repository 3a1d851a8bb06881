#pragma once

#include <vector>

#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "common/sources/source_registry.h"
#include "metamodel/source_data.h"

namespace Zelk::Provider::Metadata::Metamodel {

/// The facts about this domain that the shared source registry needs.
struct SourceDomain {
  using SourceData = Metamodel::SourceData;
  using CreateSpec = Bindings::Metamodel::SourceSvc::CreateSpec;
  using Info = Bindings::Metamodel::SourceSvc::Info;

  static constexpr const char* kExists = MessageId::kMetamodelSourceExists;
  static constexpr const char* kNotFound = MessageId::kMetamodelSourceNotFound;
  static constexpr const char* kFileNotFound = MessageId::kMetamodelSourceFileNotFound;
  static constexpr const char* kParseError = MessageId::kMetamodelParseError;

  static bool Parse(TextBuffer text, const std::shared_ptr<SourceData>& source, Errors& errors);
  static void PushNames(const SourceData& source, std::vector<NameMark>& names);
  static void SetFingerprint(SourceData& source, const std::string& digest);
};

using reload = ReloadEntry<SourceDomain>;

/// Its only state is the table of sources. There is no index across sources; every query walks the
/// table.
class ZELK_METADATA_SERVICES_EXPORT JsonMetadataContainer final : public MetadataContainer {
 public:
  JsonMetadataContainer();
  ~JsonMetadataContainer() override;

  ErrorPtr CreateSource(
      const std::string& source_id,
      const std::shared_ptr<const Bindings::Metamodel::SourceSvc::CreateSpec>& spec) override;
  ErrorPtr DeleteSource(const std::string& source_id) override;
  ErrorPtr ReloadSource(const boost::optional<std::string>& source_id) override;
  std::list<std::string> ListSources() const override;
  std::shared_ptr<const Bindings::Metamodel::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const override;
  std::string SourceFingerprint(const boost::optional<std::string>& source_id) const override;

  std::list<std::string> ListComponents() const override;
  std::shared_ptr<const Bindings::Metamodel::ComponentData> ComponentInfo(
      const std::string& component_id) const override;
  std::string ComponentFingerprint(const std::string& component_id) const override;
  std::list<std::string> ListPackages() const override;
  std::shared_ptr<const Bindings::Metamodel::PackageInfo> PackageInfo(
      const std::string& package_id) const override;
  std::list<std::string> ListServices() const override;
  std::shared_ptr<const Bindings::Metamodel::ServiceInfo> ServiceInfo(
      const std::string& service_id) const override;
  boost::optional<std::list<std::string>> ListOperations(
      const std::string& service_id) const override;
  std::shared_ptr<const Bindings::Metamodel::OperationInfo> OperationInfo(
      const std::string& service_id, const std::string& operation_id) const override;
  std::list<std::string> ListHiddens() const override;
  std::list<std::string> ListEnumerations() const override;
  std::shared_ptr<const Bindings::Metamodel::EnumerationInfo> EnumerationInfo(
      const std::string& enumeration_id) const override;
  std::list<std::string> ListStructures() const override;
  std::shared_ptr<const Bindings::Metamodel::StructureInfo> StructureInfo(
      const std::string& structure_id) const override;
  std::set<std::string> ListResources() const override;
  boost::optional<std::set<std::string>> ListModels(const std::string& resource_id) const override;

 private:
  SourceRegistry<SourceDomain> sources_;
};

}  // namespace Zelk::Provider::Metadata::Metamodel
