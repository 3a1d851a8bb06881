#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/lines.h"

// What the headers of the bindings declare, read from their text: so a service, an operation, a
// parameter or a member that is added there is missed in the metadata that describe it.

namespace Zelk::Testing {

struct ScannedBindings {
  /// "ComponentSvc" or "Service::OperationSvc" to its operations and their own parameters, in
  /// order, all in lower snake case.
  std::map<std::string, std::vector<std::pair<std::string, Lines>>> services;

  /// "ComponentInfo" or "SourceSvc::CreateSpec" to its members in order, inherited ones included.
  std::map<std::string, Lines> records;
};

/// `domain` is the name of the folder, such as "metamodel".
ScannedBindings ScanBindings(const std::string& domain);

/// "CreateSpec" to "create_spec".
std::string ToSnakeCase(const std::string& camel_case);

}  // namespace Zelk::Testing
