#pragma once

#include <string>
#include <vector>

#include "analysis/workspace.h"
#include "host/load.h"

namespace Zelk::Tool::Docs {

/// What a page is about.
struct Subject {
  const Analysis::Workspace& workspace;
  /// Files that do not load; the page lists them with their messages.
  const std::vector<LoadReport>& failed;
  /// Files of which a part does not load; the same.
  const std::vector<LoadReport>& partial;
  std::string title;
};

/// All elements with their places, fates and references, as JSON in columns: the value at a
/// position of each column belongs to one element. page/model.js reads it and describes it.
std::string StructureJson(const Subject& subject);

/// The documentation of every element, in the same order; 0 for one without.
std::string DocumentationJson(const Analysis::Workspace& workspace);

}  // namespace Zelk::Tool::Docs
