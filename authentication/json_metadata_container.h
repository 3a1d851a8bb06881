#pragma once

#include <vector>

#include <zelk/provider/metadata/authentication/metadata_container.h>

#include "authentication/source_data.h"
#include "common/sources/source_registry.h"

namespace Zelk::Provider::Metadata::Authentication {

/// The facts about this domain that the shared source registry needs.
struct SourceDomain {
  using SourceData = Authentication::SourceData;
  using CreateSpec = Bindings::Authentication::SourceSvc::CreateSpec;
  using Info = Bindings::Authentication::SourceSvc::Info;

  static constexpr const char* kExists = MessageId::kAuthenticationSourceExists;
  static constexpr const char* kNotFound = MessageId::kAuthenticationSourceNotFound;
  static constexpr const char* kFileNotFound = MessageId::kAuthenticationSourceFileNotFound;
  static constexpr const char* kParseError = MessageId::kAuthenticationParseError;

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
      const std::shared_ptr<const Bindings::Authentication::SourceSvc::CreateSpec>& spec) override;
  ErrorPtr DeleteSource(const std::string& source_id) override;
  ErrorPtr ReloadSource(const boost::optional<std::string>& source_id) override;
  std::list<std::string> ListSources() const override;
  std::shared_ptr<const Bindings::Authentication::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const override;
  std::string SourceFingerprint(const boost::optional<std::string>& source_id) const override;

  std::list<std::string> ListComponents() const override;
  std::shared_ptr<const Bindings::Authentication::ComponentData> ComponentInfo(
      const std::string& component_id) const override;
  std::string ComponentFingerprint(const std::string& component_id) const override;
  std::list<std::string> ListPackages() const override;
  std::shared_ptr<const Bindings::Authentication::PackageInfo> PackageInfo(
      const std::string& package_id) const override;
  std::list<std::string> ListServices() const override;
  std::shared_ptr<const Bindings::Authentication::ServiceInfo> ServiceInfo(
      const std::string& service_id) const override;
  boost::optional<std::list<std::string>> ListOperations(
      const std::string& service_id) const override;
  std::shared_ptr<const Bindings::Authentication::OperationInfo> OperationInfo(
      const std::string& service_id, const std::string& operation_id) const override;

 private:
  SourceRegistry<SourceDomain> sources_;
};

}  // namespace Zelk::Provider::Metadata::Authentication
