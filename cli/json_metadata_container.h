#pragma once

#include <vector>

#include <zelk/provider/metadata/cli/metadata_container.h>

#include "cli/source_data.h"
#include "common/sources/source_registry.h"

namespace Zelk::Provider::Metadata::Cli {

/// The facts about this domain that the shared source registry needs.
struct SourceDomain {
  using SourceData = Cli::SourceData;
  using CreateSpec = Bindings::Cli::SourceSvc::CreateSpec;
  using Info = Bindings::Cli::SourceSvc::Info;

  static constexpr const char* kExists = MessageId::kCliSourceExists;
  static constexpr const char* kNotFound = MessageId::kCliSourceNotFound;
  static constexpr const char* kFileNotFound = MessageId::kCliSourceFileNotFound;
  static constexpr const char* kParseError = MessageId::kCliParseError;

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
      const std::shared_ptr<const Bindings::Cli::SourceSvc::CreateSpec>& spec) override;
  ErrorPtr DeleteSource(const std::string& source_id) override;
  ErrorPtr ReloadSource(const boost::optional<std::string>& source_id) override;
  std::list<std::string> ListSources() const override;
  std::shared_ptr<const Bindings::Cli::SourceSvc::Info> SourcesInfo(
      const std::string& source_id) const override;
  std::string SourceFingerprint(const boost::optional<std::string>& source_id) const override;

  std::list<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>> ListNamespaces()
      const override;
  std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info> NamespaceInfo(
      const std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>& identity) const override;
  std::string NamespaceFingerprint() const override;
  std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>> ListCommands(
      const boost::optional<std::string>& namespace_path) const override;
  std::shared_ptr<const Bindings::Cli::CommandSvc::Info> CommandInfo(
      const std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>& identity) const override;
  std::string CommandFingerprint() const override;

 private:
  SourceRegistry<SourceDomain> sources_;
};

}  // namespace Zelk::Provider::Metadata::Cli
