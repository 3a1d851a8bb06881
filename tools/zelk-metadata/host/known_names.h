#pragma once

#include <string>

#include "host/host.h"

// The names of the things of a kind, for commands that look for several at once.

namespace Zelk::Tool {

/// The names of all things of the kind. Operations are SERVICE.OPERATION here, since their own
/// names say little without that of the service.
Names AllNames(const FoundKind& found);

/// Names that a list query returned for the id, as AllNames() has them.
Names FullNames(const FoundKind& found, const std::string& id, const Names& names);

/// What an entry of an outline can be: a kind, or a part that is not a kind.
struct OutlineKind {
  const DomainRow* row;
  std::string name;
};

/// Those of all domains.
std::vector<OutlineKind> OutlineKinds(const Host& host);

/// Their names, each once.
Names OutlineKindNames(const Host& host);

}  // namespace Zelk::Tool
