#pragma once

#include <memory>
#include <string>

#include <boost/none.hpp>

#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/cli/services.h>

#include "support/surface_recorder.h"
#include "surface/sources.h"

namespace Zelk::Testing {

/// The CLI domain for the tests of what all domains do alike. Its record is a command.
struct CliUnderTest {
  using Container = ::Zelk::Provider::Metadata::Cli::MetadataContainer;
  using SourceService = ::Zelk::Provider::Metadata::Cli::SourceSvc::AsyncServiceImpl;
  using CreateSpec = ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::CreateSpec;
  using Identity = ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Identity;
  using Record = ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Info;

  static constexpr char kName[] = "Cli";
  static constexpr char kRootKey[] = "cli";
  static constexpr char kExists[] = "zelk.metada.cli.source.exists";
  static constexpr char kNotFound[] = "zelk.metada.cli.source.not.found";
  static constexpr char kFileNotFound[] = "zelk.metada.cli.source.file.not.found";
  static constexpr char kParseError[] = "zelk.metadata.cli.parse.error";
  static constexpr bool kDeliversSuccess = true;

  static std::string File(const std::string& name) {
    return R"({"cli": [{"type": "command", "path": "foo", "name": ")" + name +
           R"(", "description": "bar",
               "node_metadata": {"service_id": "s", "operation_id": "o"}}]})";
  }

  /// What a root key of the wrong type gives.
  static Lines InvalidRoot() {
    return {kInvalidArgumentError,
            MessageLine("zelk.metadata.cli.json.invalid.field", "Unknown message.", {kRootKey})};
  }

  static Lines Names(const Container& container) {
    Lines names;
    for (const auto& identity : container.ListCommands(boost::none))
      names.push_back(identity->name);
    return names;
  }

  static std::shared_ptr<const Record> Find(const Container& container, const std::string& name) {
    return container.CommandInfo(std::make_shared<const Identity>("foo", name));
  }

  static std::string Text(const Record& record) {
    return record.identity->path + "." + record.identity->name + " " + record.description + " " +
           record.service_id + "." + record.operation_id;
  }
};

using CliSources = Sources<CliUnderTest>;

}  // namespace Zelk::Testing
