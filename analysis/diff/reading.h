#pragma once

#include <optional>
#include <string>

#include "analysis/diff/kind.h"
#include "analysis/element_model.h"

namespace Zelk::Analysis::Diff {

/// What changes of what a command prints mean for those who read it, by formatters.
struct Reading {
  const char* formatter;
  Class field_added;
  Class order;
  Class heading;
};

/// The node of the formatter, or kNoNode.
NodeId FormatterNode(const Model& cli, ElementId command);

/// As the library answers it.
std::optional<std::string> FormatterOf(const Model& cli, ElementId command);

const Reading& ReadingOf(const std::optional<std::string>& formatter);

}  // namespace Zelk::Analysis::Diff
