#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "analysis/lint/workspace.h"
#include "host/load.h"
#include "host/source_argument.h"

namespace Zelk::Tool::Lint {

/// The files that are linted together.
struct Input {
  std::vector<Analysis::Lint::File> files;

  /// Those that do not load. They are not linted.
  std::vector<LoadReport> failed;

  std::vector<Unreadable> unreadable;
};

/// Reads files, folders and standard input, each file once.
Input ReadInput(const std::vector<SourceArgument>& arguments, std::istream& in);

}  // namespace Zelk::Tool::Lint
