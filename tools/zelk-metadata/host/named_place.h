#pragma once

#include <optional>
#include <string>

#include "analysis/place.h"

namespace Zelk::Tool {

/// A place in a file, as users know it.
struct NamedPlace {
  std::string file;
  Analysis::Position position;

  /// Long ones are left out.
  std::optional<std::string> pointer;
};

NamedPlace NamedPlaceOf(const Analysis::Workspace& workspace, const Analysis::Place& place);

}  // namespace Zelk::Tool
