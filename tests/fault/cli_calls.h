#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fault/tree_calls.h"
#include "support/cli_text.h"
#include "surface/cli_under_test.h"

namespace Zelk::Testing {

/// The CLI domain where memory runs out.
struct CliWithoutMemory : CliUnderTest {
  using NamespaceIdentity = Bindings::Cli::NamespaceSvc::Identity;

  static constexpr char kDataFile[] = "cli.json";

  /// Paths and names.
  static constexpr std::pair<const char*, const char*> kIdentities[] = {
      {"", ""},
      {"", "outermost_of_namespaces"},
      {"outermost_of_namespaces", "implied_namespace"},
      {"outermost_of_namespaces.implied_namespace", "innermost_of_namespaces"},
      {"outermost_of_namespaces", "command_with_everything"},
      {"", "command_at_the_top"},
      {kUnknownKey, kUnknownKey}};

  /// What refuses a file after much of it was read, as texts to replace in the whole one.
  static std::vector<std::pair<std::string, std::string>> Mistakes() {
    return {{R"(, "operation_id": "o")", ""},
            {R"("operation_id": "o")", R"("operation_id": 1)"},
            {R"({"service_id": "s")", R"(1, "unread": {"service_id": "s")"},
            {R"("command", "path": "", )", R"("none", "path": "", )"}};
  }

  template <typename Visit>
  static void EachQuery(const Container& container, const Visit& visit) {
    EachSourceQuery(container, visit);
    visit("ListNamespaces", [&] { return container.ListNamespaces(); });
    visit("NamespaceFingerprint", [&] { return container.NamespaceFingerprint(); });
    visit("CommandFingerprint", [&] { return container.CommandFingerprint(); });
    visit("ListCommands of all", [&] { return container.ListCommands(boost::none); });
    for (const auto& [path, name] : kIdentities) {
      const OptionalText some(path);
      const auto of_namespace = std::make_shared<const NamespaceIdentity>(path, name);
      const auto of_command = std::make_shared<const Identity>(path, name);
      const std::string text = CliText(*of_command);
      visit("ListCommands of " + text, [&] { return container.ListCommands(some); });
      visit("NamespaceInfo of " + text, [&] { return container.NamespaceInfo(of_namespace); });
      visit("CommandInfo of " + text, [&] { return container.CommandInfo(of_command); });
    }
    visit("NamespaceInfo of null", [&] { return container.NamespaceInfo(nullptr); });
    visit("CommandInfo of null", [&] { return container.CommandInfo(nullptr); });
  }

  template <typename Visit>
  static void EachOperation(const std::shared_ptr<Container>& container, const Visit& visit) {
    using Namespaces = ::Zelk::Provider::Metadata::Cli::NamespaceSvc::AsyncServiceImpl;
    using Commands = ::Zelk::Provider::Metadata::Cli::CommandSvc::AsyncServiceImpl;
    SourceService sources(container);
    Namespaces namespaces(container);
    Commands commands(container);
    EachSourceOperation(sources, visit);
    visit("NamespaceSvc::List", namespaces, &Namespaces::List);
    visit("NamespaceSvc::Fingerprint", namespaces, &Namespaces::Fingerprint);
    visit("CommandSvc::List of all", commands, &Commands::List, OptionalText());
    visit("CommandSvc::Fingerprint", commands, &Commands::Fingerprint);
    for (const auto& [path, name] : kIdentities) {
      const auto of_namespace = std::make_shared<const NamespaceIdentity>(path, name);
      const auto of_command = std::make_shared<const Identity>(path, name);
      const std::string text = CliText(*of_command);
      visit("NamespaceSvc::Get of " + text, namespaces, &Namespaces::Get, of_namespace);
      visit("CommandSvc::List of " + text, commands, &Commands::List, OptionalText(path));
      visit("CommandSvc::Get of " + text, commands, &Commands::Get, of_command);
    }
    const std::shared_ptr<const NamespaceIdentity> no_namespace;
    const std::shared_ptr<const Identity> no_command;
    visit("NamespaceSvc::Get of null", namespaces, &Namespaces::Get, no_namespace);
    visit("CommandSvc::Get of null", commands, &Commands::Get, no_command);
  }
};

}  // namespace Zelk::Testing
