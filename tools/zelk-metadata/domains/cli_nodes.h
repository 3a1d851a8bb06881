#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <com/orvane/zelk/metadata/cli/records.h>

#include "domains/bindings.h"
#include "host/domain.h"

// What a command-line client makes of namespaces and commands.

namespace Zelk::Tool {

/// Everything that the services answer, by identity.
struct CliNodes {
  using Identity = Bindings::Cli::TreeIdentity;

  std::map<Identity, std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info>> namespaces;
  std::map<Identity, std::shared_ptr<const Bindings::Cli::CommandSvc::Info>> commands;
};

/// The namespaces with what is in them. Commands in a namespace without a description come last.
Outline OutlineOf(const CliNodes& nodes);

/// The commands that call an operation, or any operation of a service, with their descriptions.
std::vector<std::pair<std::string, std::string>> CommandsCalling(const CliNodes& nodes,
                                                                 const Subject& subject);

/// The help for the command of that name, or else for the namespace.
Outcome<UsagePage> UsageOf(const CliNodes& nodes, const Names& words);

}  // namespace Zelk::Tool
