#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/format.h"

// JSON Schemas of the formats, made from their tables.

namespace Zelk::Analysis::Schema {

enum class Kind : std::uint8_t {
  /// What authors should write. Every file that it allows is loaded, unless something is wrong that
  /// no schema can express; docs/editors.md lists these.
  kStrict,
  /// What the library loads.
  kAccepts,
};

/// Of JSON Schema.
enum class Draft : std::uint8_t { k7, k2020 };

/// Of the schemas: those of the formats, "all" and "project".
const std::vector<std::string>& Names();

/// The schema with one of these names, as indented JSON with a line end. "project" is the same in
/// both variants.
std::string Text(std::string_view name, Kind kind, Draft draft);

}  // namespace Zelk::Analysis::Schema
